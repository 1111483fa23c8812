#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/text_form.h>

/// For tests of the days of dates on a real database: rows to start from, and the days that stand in the table.
namespace test_support {

/// A recurrence rule. Times are "hh:mm".
struct SeriesRule {
    int tagefolge = 1;
    int taeglich = 1;
    int woche = 0;
    /// Monday first.
    std::vector<int> flags = {0, 0, 0, 0, 0, 0, 0};
    std::string begin = "00:00";
    std::string end = "00:00";
};

inline void RunSql(LumoSeminar::DataSession& session, const std::string& sql) {
    if (!session.ExecuteSql(sql)) ADD_FAILURE() << sql << ": " << session.LastErrorText();
}

inline void InsertSeries(LumoSeminar::DataSession& session, int key, const SeriesRule& rule) {
    std::string values = std::to_string(key) + ", Convert(Datetime,'30.12.1899 " + rule.begin +
                         "',104), Convert(Datetime,'30.12.1899 " + rule.end + "',104)";
    for (const int number : {rule.tagefolge, rule.taeglich, rule.woche}) values += ", " + std::to_string(number);
    for (const int flag : rule.flags) values += ", " + std::to_string(flag);
    RunSql(session,
           "INSERT INTO Sem_Serien_IT (SerienID, BeginnUhrzeit, EndeUhrzeit, Tagefolge, taeglich, Woche, Mo, Di, Mi, Do, "
           "Fr, Sa, So) VALUES (" +
               values + ")");
}

/// The days of a date in calendar order: "03.03.2010 09:00-13:00".
inline std::vector<std::string> DaysOf(LumoSeminar::DataSession& session, int date) {
    using LumoSeminar::DateTime;
    const std::string sql =
        "SELECT Termin, BegUhr, EndUhr FROM Sem_Termin_Termine_IT WHERE SemTerminID = " + std::to_string(date) + " ORDER BY Termin";
    std::vector<std::string> days;
    if (!session.OpenSelect(sql)) {
        ADD_FAILURE() << session.LastErrorText();
        return days;
    }
    const auto rows = session.Recordset();
    const auto value = [&](LumoSeminar::Int16 column) {
        return LumoSeminar::To<DateTime>(rows->Fields().Item(column).Value());
    };
    for (; !rows->Eof(); rows->MoveNext()) {
        const DateTime day = value(0);
        const DateTime begin = value(1);
        const DateTime end = value(2);
        EXPECT_EQ(day.DatePart(), day) << "a day carries a time";
        EXPECT_EQ(begin.DatePart(), DateTime()) << "a time carries a day";
        EXPECT_EQ(end.DatePart(), DateTime()) << "a time carries a day";
        days.push_back(LumoSeminar::DateText(day) + " " + LumoSeminar::ClockText(begin) + "-" + LumoSeminar::ClockText(end));
    }
    return days;
}

}  // namespace test_support
