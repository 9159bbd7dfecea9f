// Shared fixture of the data-control tests: a fresh system directory with an SQLite alias, a form, and
// tables of people and departments with rows, data sources over them and a scripted user interface.
#pragma once
#ifdef JEX_HAVE_DB

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <random>

#include "db/dbtables.h"
#include "rtl/inifiles.h"
#include "vcl/forms.h"
#include "vcl/scripted_ui.h"

namespace jexdbtest {

class DBFixture : public ::testing::Test {
protected:
    void SetUp() override {
        std::random_device rd;
        Dir = (std::filesystem::temp_directory_path() / ("jexdbc_" + std::to_string(rd()))).string();
        std::filesystem::create_directories(Dir);
        rtl::SetSystemDirectory(Dir);
        rtl::TIniFile ini(db::TSession::ConfigFileName());
        ini.WriteString("CTRLDB", "DRIVER", "SQLITE");
        ini.WriteString("CTRLDB", "PATH", Dir + "/data");
        UI = std::make_unique<vcl::TScriptedUI>();
        Form = new vcl::TForm(nullptr);
        Form->SetName("Form1");
        Form->SetBounds(0, 0, 640, 480);
    }
    void TearDown() override {
        Form->Free();
        UI.reset();
        db::Session()->DropConnections();
        rtl::SetSystemDirectory("");
        std::error_code ec;
        std::filesystem::remove_all(Dir, ec);
    }

    // DEPT (ID key, NAME) with Sales, Research, Admin.
    db::TTable* MakeDepartments() {
        auto* t = new db::TTable(Form);
        t->SetName("tblDept");
        t->SetDatabaseName("CTRLDB");
        t->SetTableName("DEPT");
        t->FieldDefs()->Add("ID", db::ftInteger, 0, true);
        t->FieldDefs()->Add("NAME", db::ftString, 20);
        t->FieldDefs()->Add("ICON", db::ftInteger);
        t->IndexDefs()->Add("PK", "ID", {db::ixPrimary, db::ixUnique});
        t->CreateTable();
        t->Open();
        int id = 1;
        for (const char* n : {"Sales", "Research", "Admin"}) {
            t->AppendRecord({id, n, id + 10});
            ++id;
        }
        t->First();
        Dept = t;
        DeptSource = new db::TDataSource(Form);
        DeptSource->SetName("dsDept");
        DeptSource->SetDataSet(t);
        return t;
    }

    // PEOPLE (ID key, NAME, DEPT, AGE, ACTIVE, SALARY, BORN, NOTES, PHOTO) with five people.
    db::TTable* MakePeople() {
        auto* t = new db::TTable(Form);
        t->SetName("tblPeople");
        t->SetDatabaseName("CTRLDB");
        t->SetTableName("PEOPLE");
        auto* f = t->FieldDefs();
        f->Add("ID", db::ftInteger, 0, true);
        f->Add("NAME", db::ftString, 30);
        f->Add("DEPT", db::ftInteger);
        f->Add("AGE", db::ftSmallint);
        f->Add("ACTIVE", db::ftBoolean);
        f->Add("SALARY", db::ftCurrency);
        f->Add("BORN", db::ftDate);
        f->Add("NOTES", db::ftMemo, 240);
        f->Add("PHOTO", db::ftBlob);
        f->Add("GRADE", db::ftString, 5);
        t->IndexDefs()->Add("PK", "ID", {db::ixPrimary, db::ixUnique});
        t->IndexDefs()->Add("ByName", "NAME", {db::ixCaseInsensitive});
        t->IndexDefs()->Add("ByDeptAge", "DEPT;AGE", {});
        t->CreateTable();
        t->Open();
        struct Row {
            int id;
            const char* name;
            int dept, age;
            bool active;
            double salary;
        };
        for (const Row& r : {Row{1, "Ann", 1, 34, true, 1200.5}, Row{2, "Bob", 2, 45, false, 980},
                             Row{3, "Cid", 1, 29, true, 1500}, Row{4, "Dan", 3, 51, true, 2100.25},
                             Row{5, "Eve", 2, 38, false, 1750}}) {
            t->Append();
            t->FieldByName("ID")->SetAsInteger(r.id);
            t->FieldByName("NAME")->SetAsString(r.name);
            t->FieldByName("DEPT")->SetAsInteger(r.dept);
            t->FieldByName("AGE")->SetAsInteger(r.age);
            t->FieldByName("ACTIVE")->SetAsBoolean(r.active);
            t->FieldByName("SALARY")->SetAsFloat(r.salary);
            t->FieldByName("BORN")->SetAsDateTime(db::EncodeDate(1990, 1, r.id));
            t->FieldByName("GRADE")->SetAsString(r.id % 2 ? "A" : "B");
            t->Post();
        }
        t->First();
        People = t;
        PeopleSource = new db::TDataSource(Form);
        PeopleSource->SetName("dsPeople");
        PeopleSource->SetDataSet(t);
        return t;
    }

    // A value straight from the database file, through a fresh query (past every control).
    std::string Stored(const std::string& sql) {
        db::TQuery q(nullptr);
        q.SetDatabaseName("CTRLDB");
        q.SQL()->SetText(sql);
        q.Open();
        std::string v = q.Eof() ? "<none>" : q.Fields()->Fields(0)->AsString();
        q.Close();
        return v;
    }

    std::string Dir;
    std::unique_ptr<vcl::TScriptedUI> UI;
    vcl::TForm* Form = nullptr;
    db::TTable* People = nullptr;
    db::TTable* Dept = nullptr;
    db::TDataSource* PeopleSource = nullptr;
    db::TDataSource* DeptSource = nullptr;
};

} // namespace jexdbtest

#endif // JEX_HAVE_DB
