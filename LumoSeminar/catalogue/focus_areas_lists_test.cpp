#include <gtest/gtest.h>

#include <type_traits>

#include <LumoConnection/script/script_session.h>
#include <LumoConnection/stored_rows.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <test_support/focus_area_statements.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace focus_area_statements;
using LumoConnection::Script;
using test_support::LabelsOf;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;

/// What holds for the focus areas of a seminar and for those of a date alike. Both are listed for the key 17.
template <class List>
class FocusAreaLists : public testing::Test {
  protected:
    static constexpr bool kOfSeminar = std::is_same_v<List, colSemSchwerpunkte>;

    static std::string SelectKeys(Int32 owner) {
        return kOfSeminar ? SelectKeysOfSeminar(owner) : SelectKeysOfDate(owner);
    }
    static std::string SelectName(Int32 owner, Int32 focus_area) {
        return kOfSeminar ? SelectOfSeminar(owner, focus_area) : SelectOfDate(owner, focus_area);
    }
    static std::vector<std::string> KeyColumns() { return {"SchwerpunktID", kOfSeminar ? "SemID" : "SemTerminID"}; }
    static std::vector<std::string> NameColumns() { return {kOfSeminar ? "Weiterbildungsschwerpunkt" : "WBS"}; }

    static std::string EntryLabelOf(const std::string& member) {
        return std::string(kOfSeminar ? " LumoSeminar062.clsSemSchwerpunkt." : " LumoSeminar062.clsSemTerminSchwerpunkt.") + member;
    }
    static void ScriptList(Script& script, Int32 owner, const std::vector<Int32>& focus_areas) {
        std::vector<std::vector<Variant>> rows;
        rows.reserve(focus_areas.size());
        for (const Int32 focus_area : focus_areas) rows.push_back({focus_area, owner});
        script.AdoConnection();
        script.OpenSelect(SelectKeys(owner)).Rows(KeyColumns(), rows);
        for (std::size_t i = 0; i < rows.size(); ++i) script.AdoConnection();
    }

    static Ref<List> Listed(const Ref<DataSession>& session, Int32 owner = 17) {
        auto list = New<List>();
        (void)list->Init(owner, session);
        return list;
    }

    static std::vector<Text> KeysOf(const Ref<List>& list) {
        std::vector<Text> keys;
        for (const auto& entry : list->NewEnum()) keys.push_back(entry->Key());
        return keys;
    }
};

struct ListNames {
    template <class List>
    static std::string GetName(int) {
        return std::is_same_v<List, colSemSchwerpunkte> ? "OfASeminar" : "OfADate";
    }
};
using Lists = testing::Types<colSemSchwerpunkte, colSemTerminSchwerpunkte>;
TYPED_TEST_SUITE(FocusAreaLists, Lists, ListNames);

TYPED_TEST(FocusAreaLists, AWalkOverTheNamesCostsOneStatementAnEntry) {
    Script script;
    this->ScriptList(script, 17, {1, 2});
    script.OpenSelect(this->SelectName(17, 1)).Rows(this->NameColumns(), {{"Brandschutz für Prüfer"}});
    script.OpenSelect(this->SelectName(17, 2)).Rows(this->NameColumns(), {{"Kunden \"vor Ort\""}});
    const auto list = this->Listed(script.Session());
    for (int walk = 0; walk < 2; ++walk) {
        std::vector<Text> names;
        for (const auto& entry : list->NewEnum()) names.push_back(entry->WBS());
        EXPECT_EQ(names, (std::vector<Text>{"Brandschutz für Prüfer", "Kunden \"vor Ort\""}));
    }
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(FocusAreaLists, TheWalkOverTheKeysEndsAtTheFirstEntryThatCannotBeBound) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(this->SelectKeys(17)).Rows(this->KeyColumns(), {{1, 17}, {2, 17}, {3, 17}});
    script.AdoConnection();
    script.AdoConnection().Empty();
    const auto list = New<TypeParam>();
    EXPECT_EQ(list->Init(17, script.Session()), false);
    EXPECT_EQ(this->KeysOf(list), std::vector<Text>{"0000000001"});
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(FocusAreaLists, AnEntryAndAWalkOutliveTheirList) {
    Script script;
    this->ScriptList(script, 17, {1, 2});
    script.OpenSelect(this->SelectName(17, 1)).Rows(this->NameColumns(), {{"Führung"}});
    auto list = this->Listed(script.Session());
    auto entry = list->Item(1);
    const auto walk = list->NewEnum();
    list.Reset();
    EXPECT_EQ(entry->WBS(), "Führung");
    int count = 0;
    for (const auto& met : walk) count += met->Key().empty() ? 0 : 1;
    EXPECT_EQ(count, 2);
    EXPECT_EQ(script.Report(), "");
}

/// One row whose field raises.
class BrokenRow final : public LumoConnection::StoredRows {
  public:
    BrokenRow() : StoredRows(Names{"WBS"}) { Append("Führung"); }

  protected:
    Variant ColumnValue(Int16) override { throw Error(-2147467259, "Verbindung verloren", "Treiber"); }
};

/// A session whose every select gives the row sets handed to it, one after another.
class SessionOf final : public DataSession {
  public:
    explicit SessionOf(std::vector<Ref<RecordSet>> rows) : rows_(std::move(rows)) {}
    Ref<Connection> AdoConnection() override { return New<Face>(); }
    Bool Connect(const Text&, const Text&, const Text&, Int32) override { return false; }
    Ref<RecordSet> Recordset() override { return rows_.at(next_ - 1); }
    Bool OpenSelect(const Text&) override { return ++next_ <= rows_.size(); }
    Bool ExecuteSql(const Text&) override { return false; }
    Variant LookupValue(const Text&, const Text&, const Text&) override { return Variant::Null(); }
    Text LastErrorText() override { return {}; }

  private:
    class Face final : public Connection {
      public:
        Int32 State() override { return kOpen; }
        void Open(const Text&, const Text&, const Text&, Int32) override {}
        Ref<RecordSet> Execute(const Text&, Int32) override { return nullptr; }
    };

    std::vector<Ref<RecordSet>> rows_;
    std::size_t next_ = 0;
};

TYPED_TEST(FocusAreaLists, AFieldThatCannotBeReadRaisesWithAllLabels) {
    const auto keys = New<LumoConnection::StoredRows>(this->KeyColumns());
    keys->Append(Int32{1});
    keys->Append(Int32{17});
    const auto session = New<SessionOf>(std::vector<Ref<RecordSet>>{keys, New<BrokenRow>()});
    const auto entry = this->Listed(session)->Item(1);
    const auto error = RaisedBy([&] { return entry->WBS(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147467259);
    EXPECT_EQ(error->Source(), "Treiber");
    EXPECT_EQ(LabelsOf(error), (Labels{"LumoSeminar.common.Nz", this->EntryLabelOf("InitPropertiesByRecordset"),
                                       this->EntryLabelOf("PropertiesInit"), this->EntryLabelOf("WBS --> GET")}));
}

}  // namespace
}  // namespace LumoSeminar
