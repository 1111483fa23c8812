#include <LumoSeminar/enrolment/colTeilnehmer.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <test_support/failures.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/termin_statements.h>

namespace LumoSeminar {
namespace {

using namespace participant_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;
namespace dates = termin_statements;

using colTeilnehmerTest = ParticipantTest;
using Keys = std::vector<Text>;

constexpr Int32 kUserID = 11;
const Text kNewKey = "0000000000";

const std::string kOfList = " LumoSeminar062.ColTeilnehmer.";
const std::string kAddEmptyObject = "LumoSeminar.colTeilnehmer.AddEmptyObject";
const Labels kLabelsOfALoad = {kOfList + "LoadKeysFromDatabase", kOfList + "Init"};
/// Of a record whose load raises while it gets its date.
const Labels kLabelsOfARecord = {kLabel + "PropertiesInit", kLabel + "MDNr -> Property LET", kLabel + "Init"};

Labels Behind(Labels inner, const Labels& outer) {
    inner.insert(inner.end(), outer.begin(), outer.end());
    return inner;
}

/// The list of the keys of a date.
void ScriptKeys(Script& script, const std::vector<Variant>& keys, int date = 17, const std::string& filter = {}) {
    std::vector<std::vector<Variant>> rows;
    for (const Variant& key : keys) rows.push_back({key});
    script.AdoConnection();
    script.OpenSelect(SelectKeys(date, filter)).Rows({"TeilnehmerID"}, rows);
}

/// The same, and the records, each of which loads.
void ScriptList(Script& script, const std::vector<Int32>& keys, int date = 17) {
    ScriptKeys(script, {keys.begin(), keys.end()}, date);
    for (const Int32 key : keys) ScriptRecord(script, {FullRow()}, key);
}

Ref<colTeilnehmer> Listed(const Ref<DataSession>& session, Int32 date = 17) {
    auto list = New<colTeilnehmer>();
    EXPECT_EQ(list->Init(date, session), true);
    return list;
}

Keys KeysOf(const Ref<colTeilnehmer>& list) {
    Keys keys;
    for (const auto& record : list->NewEnum()) keys.push_back(record->Key());
    return keys;
}

// Init

TEST_F(colTeilnehmerTest, AListOfNParticipantsCostsOneStatementAndOneForEachAndNoneBehindIt) {
    Script script;
    script.AdoConnection();
    script.OpenSelect("SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = 17").Rows({"TeilnehmerID"}, {{8}, {7}, {12}});
    for (const Int32 key : {8, 7, 12}) ScriptRecord(script, {FullRow()}, key);
    const auto list = Listed(script.Session());
    EXPECT_EQ(script.Report(), "") << "a Close would be a call more";
    EXPECT_EQ(script.RecordsetCalls(), 4);
    EXPECT_EQ(list->Count(), 3);
    EXPECT_EQ(KeysOf(list), (Keys{"0000000008", "0000000007", "0000000012"})) << "in the order of the server";
    for (const auto& record : list->NewEnum()) ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, AFilterIsGluedOnAsItStands) {
    const struct {
        Text filter;
        std::string statement;
    } cases[] = {
        {" AND Teilnahme <> 0", "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = 17 AND Teilnahme <> 0"},
        {" ORDER BY ErfDatum DESC", "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = 17 ORDER BY ErfDatum DESC"},
        {" Teilnahme <> 0", "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = 17 Teilnahme <> 0"},
        {"5", "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = 175"},
        {" AND ErfUser = 'Käthe's \"{SemTerminID} %s", SelectKeys(17, " AND ErfUser = 'Käthe's \"{SemTerminID} %s")},
        {Text("\xFF\r\na\0b", 6), SelectKeys(17, std::string("\xFF\r\na\0b", 6))},
        {Text(100'000, 'x'), SelectKeys(17, std::string(100'000, 'x'))},
    };
    for (const auto& c : cases) {
        Script script;
        script.AdoConnection();
        script.OpenSelect(c.statement).Rows({"TeilnehmerID"}, {{7}});
        ScriptRecord(script);
        colTeilnehmer list;
        EXPECT_EQ(list.Init(17, script.Session(), c.filter), true);
        EXPECT_EQ(list.Count(), 1);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(colTeilnehmerTest, WithoutADateTheRecordsAreBoundOnly) {
    Script script;
    ScriptKeys(script, {7, 8}, 0);
    script.AdoConnection();
    script.AdoConnection();
    EXPECT_EQ(KeysOf(Listed(script.Session(), 0)), (Keys{"0000000007", "0000000008"}));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, TheRecordsHaveTheDateOfTheListWhateverTheirRowsSay) {
    Script script;
    ScriptKeys(script, {7, 8}, 18);
    ScriptRecord(script);
    ScriptNew(script, 8);
    ScriptDate(script, {dates::FullRow()}, 18);
    ScriptDate(script, {dates::FullRow()}, 18);
    const auto list = Listed(script.Session(), 18);
    for (const auto& record : list->NewEnum()) {
        EXPECT_EQ(record->SemTerminID(), 18);
        EXPECT_EQ(record->clsTermin()->SemTerminID(), 18);
        EXPECT_EQ(record->clsTermin()->MaxTeil(), 14);
    }
    EXPECT_EQ(script.Report(), "") << "also the one whose row went meanwhile";
}

TEST_F(colTeilnehmerTest, InitIsFalseAndKeepsNothingWhereTheConnectionStaysClosed) {
    for (const bool empty : {true, false}) {
        Script open;
        ScriptList(open, {7});
        ScriptRecord(open, {FullRow()}, 8);
        Script closed;
        if (empty) {
            closed.AdoConnection().Empty();
        } else {
            closed.AdoConnection().Closed();
            closed.ConnectionOpen().StaysClosed();
        }
        const auto list = Listed(open.Session());
        EXPECT_EQ(list->Init(18, closed.Session()), false);
        EXPECT_TRUE(closed.SessionReleased());
        EXPECT_EQ(KeysOf(list), Keys{"0000000007"});
        EXPECT_EQ(list->Add(8)->SemTerminID(), 17) << "of the date and on the session that it had";
        EXPECT_EQ(open.Report() + closed.Report(), "");
    }
}

TEST_F(colTeilnehmerTest, ASecondInitAddsToTheList) {
    Script script;
    ScriptList(script, {7, 8});
    ScriptList(script, {5}, 18);
    ScriptRecord(script, {FullRow()}, 9);
    const auto list = Listed(script.Session());
    const auto first = list->Item(1);
    EXPECT_EQ(list->Init(18, script.Session()), true);
    EXPECT_EQ(KeysOf(list), (Keys{"0000000007", "0000000008", "0000000005"}));
    EXPECT_EQ(list->Item(1), first);
    EXPECT_EQ(list->Item(1)->SemTerminID(), 17);
    EXPECT_EQ(list->Add(9)->SemTerminID(), 18);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, ARecordThatFindsTheConnectionClosedIsListedUnboundAsANewOne) {
    for (const int closed : {1, 2}) {
        Script script;
        ScriptKeys(script, {7, 8});
        for (int i = 0; i < closed; ++i) script.AdoConnection().Empty();
        if (closed == 1) ScriptRecord(script, {FullRow()}, 8);
        colTeilnehmer list;
        const auto error = RaisedBy([&] { return list.Init(17, script.Session()); });
        EXPECT_TRUE(list.Item(kNewKey));
        EXPECT_EQ(list.Count(), closed == 1 ? 2 : 1);
        EXPECT_EQ(script.Report(), "");
        if (closed == 1) {
            EXPECT_FALSE(error);
            continue;
        }
        ASSERT_TRUE(error) << "the second such has the same key";
        EXPECT_EQ(error->Number(), 457);
        EXPECT_EQ(LabelsOf(error), kLabelsOfALoad);
    }
}

// Item, NewEnum

TEST_F(colTeilnehmerTest, AWalkGoesOnWithoutTheListAndWhileEntriesAreTakenOut) {
    Script script;
    ScriptList(script, {8, 7, 12});
    auto list = Listed(script.Session());
    Keys met;
    for (const auto& record : list->NewEnum()) {
        met.push_back(record->Key());
        if (met.size() == 1) {
            EXPECT_EQ(list->RemoveColOnly("0000000007"), true);
            EXPECT_EQ(list->RemoveColOnly(record->Key()), true);
            list.Reset();
        }
    }
    EXPECT_EQ(met, (Keys{"0000000008", "0000000012"}));
    EXPECT_TRUE(script.SessionReleased());
}

// Add

TEST_F(colTeilnehmerTest, AddLoadsARecordOfTheDateAndFilesItAtTheEnd) {
    Script script;
    ScriptList(script, {8});
    ScriptRecord(script);
    const auto list = Listed(script.Session());
    const auto record = list->Add(7);
    EXPECT_EQ(record->TeilnehmerID(), 7);
    EXPECT_EQ(record->SemTerminID(), 17);
    EXPECT_EQ(KeysOf(list), (Keys{"0000000008", "0000000007"}));
    EXPECT_EQ(list->Item("0000000007"), record);
    EXPECT_EQ(script.Report(), "") << "no row is written";
}

TEST_F(colTeilnehmerTest, AddRaises457BehindTheLoadOfARecordThatIsListedAndTheObjectIsLost) {
    Script script;
    ScriptList(script, {8, 7});
    ScriptRecord(script);
    const auto list = Listed(script.Session());
    const auto there = list->Item(2);
    const auto error = RaisedBy([&] { return list->Add(7); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 457);
    EXPECT_EQ(error->Description(), "The key \"0000000007\" is already in the collection.\r\n LumoSeminar062.ColTeilnehmer.Add");
    EXPECT_EQ(KeysOf(list), (Keys{"0000000008", "0000000007"}));
    EXPECT_EQ(list->Item(2), there);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, AddDoesNotLookAtTheResultOfInitAndFilesAnUnboundRecordAsANewOne) {
    Script script;
    ScriptList(script, {});
    script.AdoConnection().Empty();
    const auto list = Listed(script.Session());
    const auto record = list->Add(7);
    EXPECT_EQ(record->Key(), kNewKey);
    EXPECT_EQ(list->Item(kNewKey), record);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, AddAndAddEmptyObjectBeforeInitRaise91) {
    colTeilnehmer list;
    EXPECT_EQ(list.Count(), 0);
    const auto add = RaisedBy([&] { return list.Add(7); });
    const auto empty = RaisedBy([&] { return list.AddEmptyObject(); });
    ASSERT_TRUE(add);
    ASSERT_TRUE(empty);
    EXPECT_EQ(add->Number(), 91);
    EXPECT_EQ(empty->Number(), 91);
    EXPECT_EQ(LabelsOf(add), (Labels{kLabel + "Init", kOfList + "Add"}));
    EXPECT_EQ(LabelsOf(empty), (Labels{kLabel + "Init", kOfList + "Add", kAddEmptyObject}));
    EXPECT_EQ(list.Count(), 0);
}

// AddEmptyObject, ChangeKey

/// Writes the empty object of date 17: it gets that key.
void ScriptWrite(Script& script, Int32 key) {
    ScriptDate(script);
    script.OpenSelect(Insert(kNewValues));
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(key);
    ScriptCosts(script, key);
}

TEST_F(colTeilnehmerTest, AddEmptyObjectTwiceGivesTheSameRecordWithWhatWasSetOnIt) {
    Script script;
    ScriptList(script, {7});
    ScriptNew(script);
    const auto list = Listed(script.Session());
    const Ref<Object> empty = list->AddEmptyObject();
    const auto record = empty.As<clsTeilnehmer>();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->TeilnehmerID(), 0);
    EXPECT_EQ(record->SemTerminID(), 17);
    EXPECT_EQ(record->Teilnahme(), -1);
    record->Bemerkung("Käthe's \"Gemüse\"");
    EXPECT_EQ(list->AddEmptyObject(), empty);
    EXPECT_EQ(list->Item(kNewKey)->Bemerkung(), "Käthe's \"Gemüse\"");
    EXPECT_EQ(KeysOf(list), (Keys{"0000000007", kNewKey}));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, BehindAWriteAndChangeKeyTheRecordIsFiledUnderItsKeyAndAFurtherEmptyObjectIsANewOne) {
    Script script;
    ScriptList(script, {7});
    ScriptNew(script);
    ScriptWrite(script, 8);
    ScriptNew(script);
    const auto list = Listed(script.Session());
    const auto record = list->AddEmptyObject().As<clsTeilnehmer>();
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    list->ChangeKey(kNewKey, record->Key());
    EXPECT_EQ(list->Item("0000000008"), record);
    EXPECT_FALSE(list->Item(kNewKey));
    EXPECT_EQ(list->Count(), 2);
    const auto further = list->AddEmptyObject();
    EXPECT_FALSE(further == record);
    EXPECT_EQ(KeysOf(list), (Keys{"0000000007", "0000000008", kNewKey}));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, WithoutChangeKeyAStoredRecordIsHandedOutAgainAsTheEmptyOne) {
    Script script;
    ScriptList(script, {7});
    ScriptNew(script);
    ScriptWrite(script, 8);
    const auto list = Listed(script.Session());
    const auto record = list->AddEmptyObject().As<clsTeilnehmer>();
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->Key(), "0000000008");
    EXPECT_EQ(list->AddEmptyObject(), record);
    EXPECT_EQ(list->Item(kNewKey), record);
    EXPECT_FALSE(list->Item("0000000008"));
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, ChangeKeyMovesTheEntryToTheEndWithoutAStatement) {
    Script script;
    ScriptList(script, {5, 7, 8});
    const auto list = Listed(script.Session());
    const auto moved = list->Item(1);
    list->ChangeKey("0000000005", "Größe");
    EXPECT_EQ(KeysOf(list), (Keys{"0000000007", "0000000008", "0000000005"}));
    EXPECT_EQ(list->Item("Größe"), moved);
    EXPECT_EQ(list->Item(3), moved);
    EXPECT_FALSE(list->Item("0000000005"));
    EXPECT_EQ(list->Count(), 3);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, ChangeKeyRaisesForAMissingOldKeyAndForANewOneThatIsThereAndLeavesTheListAsItWas) {
    Script script;
    ScriptList(script, {5, 7});
    const auto list = Listed(script.Session());
    const struct {
        Text from, to;
        Int32 number;
        Text description;
    } cases[] = {
        {"0000000009", "0000000010", 5, "There is no entry under the key \"0000000009\" in the collection."},
        {"0000000009", "0000000007", 5, "There is no entry under the key \"0000000009\" in the collection."},
        {"0000000005", "0000000007", 457, "The key \"0000000007\" is already in the collection."},
        {"0000000005", "0000000005", 457, "The key \"0000000005\" is already in the collection."},
    };
    for (const auto& c : cases) {
        const auto error = RaisedBy([&] { return list->ChangeKey(c.from, c.to), 0; });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), c.number);
        EXPECT_EQ(error->Description(), c.description + "\r\nLumoSeminar.colTeilnehmer.ChangeKey");
        EXPECT_EQ(KeysOf(list), (Keys{"0000000005", "0000000007"}));
    }
}

// Remove, RemoveColOnly

TEST_F(colTeilnehmerTest, RemoveDeletesTheRowAndTakesTheEntryOut) {
    const struct {
        Variant index;
        const char* statement;
        Keys left;
    } cases[] = {{"0000000007", "DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 7", {"0000000008", "0000000012"}},
                 {1, "DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 8", {"0000000007", "0000000012"}},
                 {3, "DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 12", {"0000000008", "0000000007"}}};
    for (const auto& c : cases) {
        Script script;
        ScriptList(script, {8, 7, 12});
        script.ExecuteSql(c.statement);
        const auto list = Listed(script.Session());
        EXPECT_EQ(list->Remove(c.index), true);
        EXPECT_EQ(KeysOf(list), c.left);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(colTeilnehmerTest, RemoveIsFalseWithoutAnErrorAndTheEntryStaysWhereTheDeleteIsRefused) {
    Script script;
    ScriptList(script, {8, 7});
    script.ExecuteSql(Delete(8)).Refused("Der Satz wird benutzt.");
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Remove(1), false);
    EXPECT_EQ(KeysOf(list), (Keys{"0000000008", "0000000007"}));
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, RemoveOfAnUnsavedRecordSendsItsStatementAndTheEntryGoes) {
    Script script;
    ScriptList(script, {});
    ScriptNew(script);
    script.ExecuteSql("DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 0");
    const auto list = Listed(script.Session());
    list->AddEmptyObject();
    EXPECT_EQ(list->Remove(kNewKey), true);
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, RemoveColOnlySendsNothingAndTheRecordStaysUsable) {
    Script script;
    ScriptList(script, {8, 7, 12});
    ScriptNew(script);
    script.ExecuteSql(Delete(12));
    const auto list = Listed(script.Session());
    list->AddEmptyObject();
    const auto last = list->Item(3);
    EXPECT_EQ(list->RemoveColOnly(kNewKey), true);
    EXPECT_EQ(list->RemoveColOnly("0000000008"), true);
    EXPECT_EQ(list->RemoveColOnly(2), true);
    EXPECT_EQ(KeysOf(list), Keys{"0000000007"});
    EXPECT_EQ(last->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colTeilnehmerTest, RemoveColOnlyRaisesForWhatIsNotThere) {
    Script script;
    ScriptList(script, {8});
    const auto list = Listed(script.Session());
    const struct {
        Variant index;
        Int32 number;
    } cases[] = {{"0000000007", 5}, {2, 9}, {Variant::Null(), 94}};
    for (const auto& c : cases) {
        EXPECT_RAISES_UNDER(c.number, Labels{kOfList + "RemoveColOnly"}, list->RemoveColOnly(c.index)) << c.number;
    }
    EXPECT_EQ(list->Count(), 1);
}

// The end of a list

/// Answers nothing and tells at its end whether another session was released by then.
class Witness final : public DataSession {
  public:
    Witness(const Script& script, std::vector<bool>& released) : script_(script), released_(released) {}
    ~Witness() override { released_.push_back(script_.SessionReleased()); }

    Bool Connect(const Text&, const Text&, const Text&, Int32) override { return false; }
    Ref<Connection> AdoConnection() override { return nullptr; }
    Ref<RecordSet> Recordset() override { return nullptr; }
    Bool OpenSelect(const Text&) override { return false; }
    Bool ExecuteSql(const Text&) override { return false; }
    Variant LookupValue(const Text&, const Text&, const Text&) override { return Variant::Null(); }
    Text LastErrorText() override { return {}; }

  private:
    const Script& script_;
    std::vector<bool>& released_;
};

TEST_F(colTeilnehmerTest, TheRecordsGoBeforeTheSession) {
    Script script;
    ScriptList(script, {7});
    std::vector<bool> released;
    auto list = Listed(script.Session());
    auto person = New<clsWBPerson>();
    Ref<DataSession> witness = New<Witness>(script, released);
    person->Init(5, 99, 2, witness);
    list->Item(1)->objWBPerson(person);
    witness.Reset();
    person.Reset();
    EXPECT_EQ(released, std::vector<bool>{});
    list.Reset();
    EXPECT_EQ(released, std::vector{false}) << "the record lets its session go before its person, the list behind both";
    EXPECT_TRUE(script.SessionReleased());
}

// Failures

TEST_F(colTeilnehmerTest, EveryFailureOfARemovalIsSilentOrRaisesUnderItsLabels) {
    const std::string open = "Open of the connection";
    const std::string remove = "ExecuteSql: " + Delete(7);
    const Labels labels = {kLabel + "DeleteFromDatabase", kOfList + "Remove"};
    ExpectFailures(
        [](Script& script) {
            ScriptList(script, {7});
            script.ExecuteSql(Delete(7));
        },
        [](const Ref<DataSession>& session) {
            colTeilnehmer list;
            if (list.Init(17, session)) (void)list.Remove(1);
        },
        {{1, kNotOk, 0, {}, {open}},
         {2, kNotOk},
         {3, kNotOk, 91, labels, {open}},
         {4, kNotOk, 0, {}, {remove}},
         {5, kNotOk},
         {1, kRaises, 7001, {kOfList + "Init"}},
         {2, kRaises, 7001, kLabelsOfALoad},
         {3, kRaises, 7001, Behind({kLabel + "Init"}, kLabelsOfALoad)},
         {4, kRaises, 7001, Behind(kLabelsOfARecord, kLabelsOfALoad)},
         {5, kRaises, 7001, labels}});
}

TEST_F(colTeilnehmerTest, EveryFailureOfAnEmptyObjectIsSilentOrRaisesUnderItsLabels) {
    const std::string open = "Open of the connection";
    const Labels add = {kOfList + "Add", kAddEmptyObject};
    const Labels date = {" LumoSeminar062.clsTermin.PropertiesInit", " LumoSeminar062.clsTermin.SemTerminID --> GET",
                         " LumoSeminar062.clsTermin.InitPropertiesByRecordset"};
    ExpectFailures(
        [](Script& script) {
            ScriptList(script, {});
            ScriptNew(script);
        },
        [](const Ref<DataSession>& session) {
            colTeilnehmer list;
            if (!list.Init(17, session)) return;
            EXPECT_EQ(list.AddEmptyObject(), list.AddEmptyObject());
        },
        {{1, kNotOk, 0, {}, {open}},
         {2, kNotOk},
         {3, kNotOk, 0, {}, {open}},
         {4, kNotOk},
         {5, kNotOk},
         {1, kRaises, 7001, {kOfList + "Init"}},
         {2, kRaises, 7001, kLabelsOfALoad},
         {3, kRaises, 7001, Behind({kLabel + "Init"}, add)},
         {4, kRaises, 7001, Behind(kLabelsOfARecord, add)},
         {5, kRaises, 7001, Behind(Behind(date, kLabelsOfARecord), add)}});
}

TEST_F(colTeilnehmerTest, EveryMemberThatCanRaiseAddsItsOwnLabel) {
    const struct {
        const char* label;
        void (*run)(colTeilnehmer&);
    } cases[] = {
        {" LumoSeminar062.ColTeilnehmer.Item", [](colTeilnehmer& l) { l.Item(7); }},
        {" LumoSeminar062.ColTeilnehmer.Init", [](colTeilnehmer& l) { (void)l.Init(17, nullptr); }},
        {"LumoSeminar.colTeilnehmer.ChangeKey", [](colTeilnehmer& l) { l.ChangeKey("a", "b"); }},
        {" LumoSeminar062.ColTeilnehmer.Add", [](colTeilnehmer& l) { l.Add(7); }},
        {"LumoSeminar.colTeilnehmer.AddEmptyObject", [](colTeilnehmer& l) { l.AddEmptyObject(); }},
        {" LumoSeminar062.ColTeilnehmer.Remove", [](colTeilnehmer& l) { (void)l.Remove("a"); }},
        {" LumoSeminar062.ColTeilnehmer.RemoveColOnly", [](colTeilnehmer& l) { l.RemoveColOnly("a"); }},
    };
    for (const auto& c : cases) {
        colTeilnehmer list;
        const auto error = RaisedBy([&] { return c.run(list), 0; });
        EXPECT_EQ(LabelsOf(error).back(), c.label);
    }
}

}  // namespace
}  // namespace LumoSeminar
