#include <LumoSeminar/frame/errors.h>

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

template <class Throw, class Handle>
Error Passed(Throw raise, Handle handle) {
    const auto error = test_support::RaisedBy([&]() -> int {
        try {
            raise();
        } catch (...) {
            handle();
        }
        return 0;
    });
    return error.value();
}

TEST(Error, WithoutSourceCarriesTheLibrarysName) {
    EXPECT_EQ(Error(9999, "text").Source(), "LumoSeminar");
    EXPECT_EQ(Error(9999, "text", "driver").Source(), "driver");
    EXPECT_STREQ(Error(9999, "text").what(), "text");
}

TEST(Error, EachNumberHasAPlainDescription) {
    EXPECT_EQ(test_support::RaisedBy([]() -> int { RaiseOverflow(); })->Description(),
              "Overflow: the value does not fit the type.");
    EXPECT_EQ(test_support::RaisedBy([]() -> int { RaiseEmptyReference(); })->Description(),
              "An empty reference was used as an object.");
    EXPECT_EQ(test_support::RaisedBy([]() -> int { RaiseInvalidUseOfNull(); })->Description(), "Invalid use of Null.");
    EXPECT_EQ(test_support::RaisedBy([]() -> int { RaiseTypeMismatch("the text", "Int32"); })->Description(),
              "Type mismatch: the text is not a value of type Int32.");
}

TEST(FirstForm, AddsALineBreakAndTheLabel) {
    const Error error =
        Passed([] { throw Error(6, "Text", "driver"); }, [] { RaiseLabelled(" LumoSeminar062.clsSeminar.Init"); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Source(), "driver");
    EXPECT_EQ(error.Description(), "Text\r\n LumoSeminar062.clsSeminar.Init");
}

TEST(FirstForm, TakesAnAdditionBehindTheLabel) {
    const Error error =
        Passed([] { throw Error(91, "Text"); }, [] { RaiseLabelled("label", "\r\nADO-Fehlermeldung: Ü"); });
    EXPECT_EQ(error.Description(), "Text\r\nlabel\r\nADO-Fehlermeldung: Ü");
}

TEST(SecondForm, WritesTheLineInFrontAndTheLabelBehind) {
    const Error error = Passed([] { throw Error(9999, "Text", "driver"); }, [] { RaiseInLine(" in LumoSeminar.Init"); });
    EXPECT_EQ(error.Number(), 9999);
    EXPECT_EQ(error.Source(), "driver");
    EXPECT_EQ(error.Description(), "in line: 0\r\nText in LumoSeminar.Init");
}

TEST(Handlers, TurnEverythingElseIntoAnErrorAndKeepItsText) {
    const Error foreign = Passed([] { throw std::runtime_error("Verbindung verloren"); }, [] { RaiseLabelled("label"); });
    EXPECT_EQ(foreign.Number(), 440);
    EXPECT_EQ(foreign.Source(), "LumoSeminar");
    EXPECT_EQ(foreign.Description(), "Verbindung verloren\r\nlabel");

    const Error memory = Passed([] { throw std::bad_alloc(); }, [] { RaiseInLine(" in LumoSeminar.Item"); });
    EXPECT_EQ(memory.Number(), 7);
    EXPECT_EQ(memory.Description(), "in line: 0\r\nOut of memory. in LumoSeminar.Item");

    const Error unknown = Passed([] { throw 42; }, [] { RaiseLabelled("label"); });
    EXPECT_EQ(unknown.Number(), 440);
    EXPECT_EQ(unknown.Description(), "An exception of an unknown type was thrown.\r\nlabel");
}

TEST(Description, ReadsBackAsTextThenLabels) {
    const struct {
        const char* description;
        const char* text;
        std::vector<std::string> labels;
    } cases[] = {
        {"", "", {}},
        {"Text", "Text", {}},
        {"Text\r\n a.b.c\r\n a.b.d", "Text", {" a.b.c", " a.b.d"}},
        {"in line: 0\r\nText in LumoSeminar.Item", "Text", {" in LumoSeminar.Item"}},
        {"in line: 0\r\nin line: 0\r\nText in LumoSeminar.IsInitialized in LumoSeminar.Item",
         "Text",
         {" in LumoSeminar.IsInitialized", " in LumoSeminar.Item"}},
        {"in line: 0\r\nText\r\n a.b.c in LumoSeminar.Init\r\nlast", "Text", {" a.b.c", " in LumoSeminar.Init", "last"}},
        {"Fehler in LumoSeminar.Init", "Fehler in LumoSeminar.Init", {}},
    };
    for (const auto& c : cases) {
        const auto parts = ReadDescription(c.description);
        EXPECT_EQ(parts.text, c.text) << c.description;
        EXPECT_EQ(parts.labels, c.labels) << c.description;
    }
}

TEST(OneLine, ShowsANameInOneShortLine) {
    EXPECT_EQ(OneLine("0000000001"), "\"0000000001\"");
    EXPECT_EQ(OneLine("a\r\nb\tc"), "\"a??b?c\"");
    EXPECT_EQ(OneLine(std::string(100'000, 'x')), "\"" + std::string(60, 'x') + "...\"");
    const std::string umlauts = std::string(59, 'x') + "ü und mehr";
    EXPECT_EQ(OneLine(umlauts), "\"" + std::string(59, 'x') + "...\"");
}

}  // namespace
}  // namespace LumoSeminar
