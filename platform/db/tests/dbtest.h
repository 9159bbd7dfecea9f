// Shared fixture of the data-access tests: a fresh system directory (so the alias configuration and the
// JEXDEMO data folder are the test's own) and an alias TESTDB on an SQLite file in it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "db/dbtables.h"
#include "rtl/inifiles.h"
#include "rtl/streaming.h"

namespace dbtest {

class DbTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::random_device rd;
        Dir = (std::filesystem::temp_directory_path() / ("jexdb_" + std::to_string(rd()))).string();
        std::filesystem::create_directories(Dir);
        rtl::SetSystemDirectory(Dir);
    }
    void TearDown() override {
        db::Session()->DropConnections();
        rtl::SetSystemDirectory("");
        std::error_code ec;
        std::filesystem::remove_all(Dir, ec);
    }
    // Writes the alias configuration: TESTDB, an SQLite database testdb.sqlite in Dir/data.
    void WriteConfig() {
        rtl::TIniFile ini(db::TSession::ConfigFileName());
        ini.WriteString("TESTDB", "DRIVER", "SQLITE");
        ini.WriteString("TESTDB", "PATH", Dir + "/data");
    }
    std::string DbFile() const { return Dir + "/data/testdb.sqlite"; }

    // A closed table PEOPLE (ID AutoInc key, NAME, AGE, BORN, ACTIVE, SALARY, NOTES) created in TESTDB.
    db::TTable* MakePeople(rtl::TComponent* owner = nullptr) {
        auto* t = new db::TTable(owner);
        t->SetDatabaseName("TESTDB");
        t->SetTableName("PEOPLE");
        auto* f = t->FieldDefs();
        f->Add("ID", db::ftAutoInc);
        f->Add("NAME", db::ftString, 30, true);
        f->Add("AGE", db::ftSmallint);
        f->Add("BORN", db::ftDate);
        f->Add("ACTIVE", db::ftBoolean);
        f->Add("SALARY", db::ftCurrency);
        f->Add("NOTES", db::ftMemo, 240);
        t->IndexDefs()->Add("PK", "ID", {db::ixPrimary, db::ixUnique});
        t->IndexDefs()->Add("ByName", "NAME", {db::ixCaseInsensitive});
        t->IndexDefs()->Add("ByAgeDesc", "AGE", {db::ixDescending});
        t->CreateTable();
        return t;
    }
    static void AddPerson(db::TDataSet* t, const std::string& name, int age) {
        t->Append();
        t->FieldByName("NAME")->SetAsString(name);
        t->FieldByName("AGE")->SetAsInteger(age);
        t->Post();
    }
    static std::vector<std::string> Column(db::TDataSet* t, const std::string& field) {
        std::vector<std::string> out;
        t->First();
        while (!t->Eof()) {
            out.push_back(t->FieldByName(field)->AsString());
            t->Next();
        }
        return out;
    }

    std::string Dir;
};

} // namespace dbtest
