// Published property groups shared by the table and query classes (the platform publishes them per class).
#pragma once

#include "db/dbtables.h"

namespace db::pub {

template <class C> void Filters(rtl::TClassDecl<C>& d) {
    d.Property("Filter", &TDataSet::Filter, &TDataSet::SetFilter);
    d.Property("Filtered", &TDataSet::Filtered, &TDataSet::SetFiltered).Default(false);
    d.Property("FilterOptions", &TDataSet::FilterOptions, &TDataSet::SetFilterOptions).Default(0);
}

template <class C> void DataSetEvents(rtl::TClassDecl<C>& d) {
    d.Event("BeforeOpen", &TDataSet::BeforeOpen);
    d.Event("AfterOpen", &TDataSet::AfterOpen);
    d.Event("BeforeClose", &TDataSet::BeforeClose);
    d.Event("AfterClose", &TDataSet::AfterClose);
    d.Event("BeforeInsert", &TDataSet::BeforeInsert);
    d.Event("AfterInsert", &TDataSet::AfterInsert);
    d.Event("BeforeEdit", &TDataSet::BeforeEdit);
    d.Event("AfterEdit", &TDataSet::AfterEdit);
    d.Event("BeforePost", &TDataSet::BeforePost);
    d.Event("AfterPost", &TDataSet::AfterPost);
    d.Event("BeforeCancel", &TDataSet::BeforeCancel);
    d.Event("AfterCancel", &TDataSet::AfterCancel);
    d.Event("BeforeDelete", &TDataSet::BeforeDelete);
    d.Event("AfterDelete", &TDataSet::AfterDelete);
    d.Event("BeforeScroll", &TDataSet::BeforeScroll);
    d.Event("AfterScroll", &TDataSet::AfterScroll);
    d.Event("BeforeRefresh", &TDataSet::BeforeRefresh);
    d.Event("AfterRefresh", &TDataSet::AfterRefresh);
    d.Event("OnCalcFields", &TDataSet::OnCalcFields);
    d.Event("OnDeleteError", &TDataSet::OnDeleteError);
    d.Event("OnEditError", &TDataSet::OnEditError);
    d.Event("OnFilterRecord", &TDataSet::OnFilterRecord);
    d.Event("OnNewRecord", &TDataSet::OnNewRecord);
    d.Event("OnPostError", &TDataSet::OnPostError);
}

} // namespace db::pub
