#pragma once

#include <gtest/gtest.h>

#include <vector>

#include <LumoSeminar/frame/data_session.h>

namespace test_support {

using Rows = std::vector<std::vector<LumoSeminar::Variant>>;

/// What a select gives; a refused one fails the test.
inline Rows Select(LumoSeminar::DataSession& session, const LumoSeminar::Text& sql) {
    if (!session.OpenSelect(sql)) {
        ADD_FAILURE() << sql << ": " << session.LastErrorText();
        return {};
    }
    const auto rows = session.Recordset();
    Rows all;
    for (; !rows->Eof(); rows->MoveNext()) {
        auto& row = all.emplace_back();
        const LumoSeminar::Fields fields = rows->Fields();
        for (LumoSeminar::Int16 i = 0; i < fields.Count(); ++i) row.push_back(fields.Item(i).Value());
    }
    rows->Close();
    return all;
}

/// The first column of the first row; Empty where there is no row.
inline LumoSeminar::Variant Value(LumoSeminar::DataSession& session, const LumoSeminar::Text& sql) {
    const Rows rows = Select(session, sql);
    return rows.empty() ? LumoSeminar::Variant() : rows[0][0];
}

/// A refused statement fails the test.
inline void Write(LumoSeminar::DataSession& session, const LumoSeminar::Text& sql) {
    EXPECT_TRUE(session.ExecuteSql(sql)) << sql << ": " << session.LastErrorText();
}

}  // namespace test_support
