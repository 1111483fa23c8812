#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <test_support/raises.h>

// The form of a script as a file, where it is written by hand and where it is wrong.
namespace LumoConnection {
namespace {

TEST(ScriptFile, MayBeWrittenByHand) {
    const Script script = Script::Read(
        "\xEF\xBB\xBF# first a remark\r\n\r\nLumoScript 1\r\n"
        "\tOpenSelect   \"SELECT 'a'\"\r\n"
        "# rows\r\n"
        "columns \"A\"  \"B\"\t\r\n"
        "        row 1 empty\r\n"
        "CloseRows 1\r\n"
        "AdoConnection\r\n  open\r\n"
        "ConnectionOpen \"\" \"\" \"\" -1\r\n  open\r\n"
        "Process \"New InfoStarter\"\r\n  gives null\r\n"
        "ExecuteSql \"E\"\r\n  raises 5 \"no\"");
    EXPECT_EQ(script.StepCount(), 6);
    EXPECT_EQ(script.CppText(),
              "script.OpenSelect(\"SELECT 'a'\").Rows({\"A\", \"B\"}, {{1, Variant::Null()}});\n"
              "script.CloseRows();\n"
              "script.AdoConnection();\n"
              "script.ConnectionOpen();\n"
              "script.Process(\"New InfoStarter\").Gives(Variant::Null());\n"
              "script.ExecuteSql(\"E\").Raises(5, \"no\");\n");
    EXPECT_EQ(Script::Read("LumoScript 1").StepCount(), 0);
}

struct Wrong {
    const char* text;
    const char* error;
};

constexpr Wrong kWrong[] = {
    {"", "Line 1: a script begins with \"LumoScript 1\"."},
    {"# nothing\n\n", "Line 1: a script begins with \"LumoScript 1\"."},
    {"\n\nExecuteSql \"E\"", "Line 3: a script begins with \"LumoScript 1\"."},
    {"LumoScript", "Line 1: something is missing at its end."},
    {"LumoScript 2", "Line 1: the form of version 2 is not known, only 1."},
    {"LumoScript one", "Line 1: \"one\" is no number."},
    {"LumoScript 1 1", "Line 1: \"1\" is too much."},
    {"LumoScript 1\nexecutesql \"E\"", "Line 2: \"executesql\" is neither a step nor an answer."},
    {"LumoScript 1\nExecuteSql", "Line 2: a text is missing at its end."},
    {"LumoScript 1\nExecuteSql E", "Line 2: a text in quotes was expected, not \"E\"."},
    {"LumoScript 1\nExecuteSql \"E", "Line 2: a text has no closing quote."},
    {"LumoScript 1\nExecuteSql \"E\\\"", "Line 2: a text has no closing quote."},
    {"LumoScript 1\nExecuteSql \"E\\", "Line 2: in a text a backslash wants \", \\, n, r, t or x behind it."},
    {"LumoScript 1\nExecuteSql \"\\q\"", "Line 2: in a text a backslash wants \", \\, n, r, t or x behind it."},
    {"LumoScript 1\nExecuteSql \"\\x4\"", "Line 2: \\x wants two hexadecimal digits."},
    {"LumoScript 1\nExecuteSql \"E\"\"F\"", "Line 2: a blank is missing behind a text."},
    {"LumoScript 1\nExecuteSql \"E\" \"F\"", "Line 2: \"\"F\"\" is too much."},
    {"LumoScript 1\nExecuteSql \"\xE4\"", "Line 2: it is no UTF-8."},
    {"LumoScript 1\nConnect \"\" \"\" \"\"", "Line 2: something is missing at its end."},
    {"LumoScript 1\nConnect \"\" \"\" \"\" 99999999999", "Line 2: \"99999999999\" is no number."},
    {"LumoScript 1\nrefused \"x\"", "Line 2: an answer wants a step above it."},
    {"LumoScript 1\nrow 1", "Line 2: a row wants columns above it."},
    {"LumoScript 1\nExecuteSql \"E\"\nrow 1", "Line 3: a row wants columns above it."},
    {"LumoScript 1\nExecuteSql \"E\"\ncolumns \"A\"", "Line 3: \"columns\" is no answer to this step."},
    {"LumoScript 1\nExecuteSql \"E\"\ngives 1", "Line 3: \"gives\" is no answer to this step."},
    {"LumoScript 1\nExecuteSql \"E\"\nempty", "Line 3: \"empty\" is no answer to this step."},
    {"LumoScript 1\nExecuteSql \"E\"\nclosed", "Line 3: \"closed\" is no answer to this step."},
    {"LumoScript 1\nConnectionExecute \"E\" -1\nrefused \"x\"", "Line 3: \"refused\" is no answer to this step."},
    {"LumoScript 1\nExecuteSql \"E\"\nrefused \"x\"\nraises 1 \"x\"", "Line 4: the step has an answer already."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns", "Line 3: a text is missing at its end."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns \"A\" \"B\"\nrow 1", "Line 4: the row has 1 values for 2 columns."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns \"A\"\nrow one", "Line 4: \"one\" is no value."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns \"A\"\nrow int:1", "Line 4: \"int:1\" is no value."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns \"A\"\nrow byte:256", "Line 4: \"256\" is no byte."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns \"A\"\nrow double:", "Line 4: \"\" is no double."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns \"A\"\nrow money:1.5", "Line 4: \"1.5\" is no money: four decimals are wanted."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns \"A\"\nrow money:x.5000", "Line 4: \"x5000\" is no money."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns \"A\"\nrow moment:2010-02-30",
     "Line 4: \"2010-02-30\" is no moment: 2010-03-02 or 2010-03-02T17:45:09.003 is wanted."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns \"A\"\nrow moment:2010-02-03T25:00:00",
     "Line 4: \"2010-02-03T25:00:00\" is no moment: 2010-03-02 or 2010-03-02T17:45:09.003 is wanted."},
    {"LumoScript 1\nOpenSelect \"S\"\ncolumns \"A\"\nrow days:1e9", "Line 4: \"1e9\" is no moment."},
    {"LumoScript 1\nCloseRows 1", "Line 2: step 1 gives no rows."},
    {"LumoScript 1\nExecuteSql \"E\"\nCloseRows 1", "Line 3: step 1 gives no rows."},
    {"LumoScript 1\nOpenSelect \"S\"\nrefused \"x\"\nCloseRows 1", "Line 4: step 1 gives no rows."},
};

TEST(ScriptFile, TellsTheLineOfWhatItDoesNotUnderstand) {
    for (const Wrong& wrong : kWrong) {
        const auto error = test_support::RaisedBy([&] { return Script::Read(wrong.text); });
        ASSERT_TRUE(error) << wrong.text;
        EXPECT_EQ(error->Number(), ScriptError::kBadScript);
        EXPECT_EQ(error->Description(), wrong.error) << wrong.text;
    }
    EXPECT_RAISES(53, Script::ReadFile("/no/such/file"));
}

}  // namespace
}  // namespace LumoConnection
