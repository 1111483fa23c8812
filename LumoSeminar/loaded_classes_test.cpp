#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <test_support/loaded_classes.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>

/// What holds for all classes that read their row when they are first asked. What is special in one of them stands in
/// its own test.
namespace LumoSeminar {
namespace {

using loaded::LoadedClass;
using loaded::MissingRow;
using loaded::Property;
using loaded::Refusal;
using loaded::Row;
using LumoConnection::FailureMode;
using LumoConnection::Script;
using test_support::Labels;

/// An object of the class with the script of its session.
class Loaded {
  public:
    explicit Loaded(const LoadedClass& kind) : kind_(kind) {
        if (kind_.asks_for_connection) script.AdoConnection();
    }

    Loaded& Reads(const std::vector<Row>& rows) {
        script.OpenSelect(kind_.select).Rows(kind_.columns, rows);
        if (kind_.closes) script.CloseRows();
        if (rows.empty()) kind_.script_missing(script);
        return *this;
    }
    Loaded& IsRefused(int times = 1) {
        for (int i = 0; i < times; ++i) script.OpenSelect(kind_.select).Refused("Die Leitung ist tot.");
        return *this;
    }
    Object& Bound() {
        object = kind_.bind(script.Session());
        return *object;
    }
    /// Expects that the script was met to its end.
    void Done() { EXPECT_EQ(script.Report(), ""); }

    Script script;
    Ref<Object> object;

  private:
    const LoadedClass& kind_;
};

class LoadedClasses : public testing::TestWithParam<LoadedClass> {
  protected:
    const LoadedClass& kind_ = GetParam();
    const std::vector<Property>& properties_ = kind_.properties;
    const Row nulls_ = Row(kind_.columns.size(), Variant::Null());

    std::vector<Property> Those(bool Property::*has) const {
        std::vector<Property> those;
        for (const auto& property : properties_) {
            if (property.*has) those.push_back(property);
        }
        return those;
    }
    void Expect(Object& object, Variant Property::*value) const {
        for (const auto& property : properties_) EXPECT_EQ(property.get(object), property.*value) << property.name;
    }
    /// All have this value but one.
    void ExpectBut(Object& object, Variant Property::*value, const Property& one, const Variant& its_value) const {
        for (const auto& property : properties_) {
            EXPECT_EQ(property.get(object), property.name == one.name ? its_value : property.*value) << property.name;
        }
    }
    Labels LabelsOfUse(const std::string& label) const {
        Labels labels = kind_.of_load;
        if (!label.empty()) labels.push_back(label);
        return labels;
    }

    /// A participant asks the defaults for the entry user where its row has none.
    struct Defaults : participant_statements::ParticipantTest {
        void TestBody() override {}
    } defaults_;
};

class ClassesWhoseLetsLoad : public LoadedClasses {};
class ClassesThatClose : public LoadedClasses {};
class ClassesReadWithoutARow : public LoadedClasses {};
class ClassesWithPlainGets : public LoadedClasses {};
class ClassesWithMisfits : public LoadedClasses {};

TEST_P(LoadedClasses, ReadTheirRowOnceWhicheverPropertyIsAskedForFirst) {
    for (const auto& first : Those(&Property::get_loads)) {
        SCOPED_TRACE(first.name);
        Loaded loaded(kind_);
        auto& object = loaded.Reads({kind_.full, nulls_}).Bound();
        EXPECT_TRUE(loaded.script.Calls().size() == (kind_.asks_for_connection ? 1U : 0U)) << "the binding reads nothing";
        EXPECT_EQ(first.get(object), first.full);
        loaded.Done();
        for (int i = 0; i < 2; ++i) Expect(object, &Property::full);
        EXPECT_EQ(loaded.script.RecordsetCalls(), 1);
        loaded.Done();
    }
}

TEST_P(LoadedClasses, HaveTheDefaultOfEachColumnThatIsNull) {
    Loaded all(kind_);
    Expect(all.Reads({nulls_}).Bound(), &Property::at_null);
    all.Done();
    for (const auto& property : properties_) {
        if (property.column < 0) continue;
        SCOPED_TRACE(property.name);
        auto row = kind_.full;
        row.at(static_cast<std::size_t>(property.column)) = Variant::Null();
        Loaded loaded(kind_);
        auto& object = loaded.Reads({row}).Bound();
        properties_[0].get(object);
        ExpectBut(object, &Property::full, property, property.at_null);
        loaded.Done();
    }
}

TEST_P(LoadedClasses, LookForAMissingRowAgainOrCountAsRead) {
    const bool again = kind_.missing == MissingRow::kLookedForAgain;
    Loaded loaded(kind_);
    for (std::size_t i = again ? 2 * Those(&Property::get_loads).size() : 1; i > 0; --i) loaded.Reads({});
    if (again) loaded.Reads({kind_.full});
    auto& object = loaded.Bound();
    for (int i = 0; i < 2; ++i) Expect(object, again ? &Property::zero : &Property::at_null);
    if (again) {
        Those(&Property::get_loads)[0].get(object);
        Expect(object, &Property::full);
    }
    loaded.Done();
}

TEST_P(LoadedClasses, AreSilentOrRaise9999WhereTheLoadIsRefused) {
    for (const auto& property : Those(&Property::get_loads)) {
        SCOPED_TRACE(property.name);
        Loaded loaded(kind_);
        loaded.IsRefused(kind_.refusal == Refusal::kLeftAlone ? 1 : 2);
        if (kind_.refusal != Refusal::kLeftAlone) loaded.Reads({kind_.full});
        auto& object = loaded.Bound();
        for (int i = 0; i < 2; ++i) {
            if (kind_.refusal == Refusal::kRaises) {
                EXPECT_RAISES_TEXT(9999, "Die Leitung ist tot.", kind_.of_load, property.get(object));
            } else {
                EXPECT_EQ(property.get(object), property.zero);
            }
        }
        EXPECT_EQ(loaded.script.RecordsetCalls(), 0);
        EXPECT_EQ(loaded.script.LastErrorTextCalls(), kind_.refusal == Refusal::kRaises ? 2 : 0);
        if (kind_.refusal == Refusal::kLeftAlone) {
            Expect(object, &Property::zero);
        } else {
            EXPECT_EQ(property.get(object), property.full);
            Expect(object, &Property::full);
        }
        loaded.Done();
    }
}

TEST_P(ClassesWhoseLetsLoad, StoreALetBehindARefusedLoadOnlyWhereTheyCountAsRead) {
    for (const auto& property : Those(&Property::let_loads)) {
        if (!property.let) continue;
        SCOPED_TRACE(property.name);
        Loaded loaded(kind_);
        loaded.IsRefused();
        if (kind_.refusal != Refusal::kLeftAlone) loaded.Reads({nulls_});
        auto& object = loaded.Bound();
        if (kind_.refusal == Refusal::kRaises) {
            EXPECT_RAISES_TEXT(9999, "Die Leitung ist tot.", kind_.of_load, property.let(object, property.other));
        } else {
            property.let(object, property.other);
        }
        EXPECT_EQ(property.get(object), kind_.refusal == Refusal::kLeftAlone ? property.other : property.at_null);
        EXPECT_EQ(loaded.script.LastErrorTextCalls(), kind_.refusal == Refusal::kRaises ? 1 : 0);
        loaded.Done();
    }
}

TEST_P(LoadedClasses, LoadBeforeALetOrLoseItToTheLoad) {
    for (const Row& row : {nulls_, kind_.full}) {
        const auto as_read = row == nulls_ ? &Property::at_null : &Property::full;
        for (const auto& property : properties_) {
            if (!property.let) continue;
            SCOPED_TRACE(property.name);
            Loaded loaded(kind_);
            auto& object = loaded.Reads({row}).Bound();
            const auto calls = loaded.script.Calls().size();
            property.let(object, property.other);
            if (property.let_loads) {
                loaded.Done();
            } else {
                EXPECT_EQ(loaded.script.Calls().size(), calls) << "a let that stores costs nothing";
                if (!property.get_loads) {
                    EXPECT_EQ(property.get(object), property.other);
                }
                Those(&Property::get_loads)[0].get(object);
                Expect(object, as_read);
                property.let(object, property.other);
            }
            ExpectBut(object, as_read, property, property.other);
            loaded.Done();
        }
    }
}

TEST_P(ClassesReadWithoutARow, KeepWhatIsLet) {
    for (const auto& property : properties_) {
        if (!property.let) continue;
        SCOPED_TRACE(property.name);
        Loaded loaded(kind_);
        auto& object = loaded.Reads({}).Bound();
        Those(&Property::get_loads)[0].get(object);
        property.let(object, property.other);
        ExpectBut(object, &Property::at_null, property, property.other);
        loaded.Done();
    }
}

TEST_P(ClassesWithPlainGets, GiveZeroBeforeTheLoad) {
    for (const auto& property : properties_) {
        if (property.get_loads) continue;
        Loaded loaded(kind_);
        EXPECT_EQ(property.get(loaded.Bound()), property.zero) << property.name;
        loaded.Done();
    }
}

TEST_P(LoadedClasses, RaiseUnderTheirLabelsWhateverStepOfTheLoadRaises) {
    for (const auto& property : properties_) {
        for (const bool let : {false, true}) {
            if (let ? !property.let || !property.let_loads : !property.get_loads) continue;
            for (int step = 0; step <= (kind_.closes ? 1 : 0); ++step) {
                SCOPED_TRACE(property.name + (let ? ", let" : ", get") + (step == 1 ? ", close" : ", select"));
                Loaded loaded(kind_);
                loaded.Reads({kind_.full});
                loaded.script.FailAt(loaded.script.StepCount() - (kind_.closes ? 1 : 0) + step, FailureMode::kRaises);
                auto& object = loaded.Bound();
                const auto error = test_support::RaisedBy([&] {
                    if (let) {
                        property.let(object, property.other);
                    } else {
                        property.get(object);
                    }
                    return 0;
                });
                ASSERT_TRUE(error);
                EXPECT_EQ(error->Number(), 7001);
                EXPECT_EQ(error->Source(), "Script");
                EXPECT_EQ(test_support::LabelsOf(error), LabelsOfUse(let ? property.of_let : property.of_get));
                EXPECT_EQ(loaded.script.CallsAfterFailure(), std::vector<std::string>{});
                loaded.Done();
            }
        }
    }
}

TEST_P(ClassesThatClose, CountAsReadOrReadAgainWhereTheRowsCannotBeClosed) {
    Loaded loaded(kind_);
    loaded.script.OpenSelect(kind_.select).Rows(kind_.columns, {kind_.full});
    loaded.script.CloseRows().Raises(-7, "Die Leitung ist tot.", "Treiber");
    if (!kind_.is_read_before_close) loaded.Reads({kind_.full});
    auto& object = loaded.Bound();
    const auto first = Those(&Property::get_loads)[0];
    const auto error = test_support::RaisedBy([&] { return first.get(object); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -7);
    EXPECT_EQ(error->Source(), "Treiber");
    EXPECT_EQ(error->Description(), test_support::Described("Die Leitung ist tot.", LabelsOfUse(first.of_get)));
    Expect(object, &Property::full);
    loaded.Done();
}

TEST_P(ClassesWithMisfits, RaiseForAValueThatDoesNotFitAndStayUnread) {
    for (const auto& misfit : kind_.misfits) {
        auto row = kind_.full;
        row[misfit.column] = misfit.value;
        for (const auto& property : Those(&Property::get_loads)) {
            SCOPED_TRACE(kind_.columns[misfit.column] + ", seen by " + property.name);
            Loaded loaded(kind_);
            for (int i = 0; i < 2; ++i) loaded.script.OpenSelect(kind_.select).Rows(kind_.columns, {row});
            auto& object = loaded.Bound();
            Labels labels = LabelsOfUse(property.of_get);
            labels.insert(labels.begin(), kind_.of_row.begin(), kind_.of_row.end());
            for (int i = 0; i < 2; ++i) EXPECT_RAISES_UNDER(misfit.number, labels, property.get(object));
            loaded.Done();
        }
    }
}

TEST_P(LoadedClasses, LetGoOfTheirSession) {
    Loaded loaded(kind_);
    loaded.Bound();
    EXPECT_FALSE(loaded.script.SessionReleased());
    loaded.object.Reset();
    EXPECT_TRUE(loaded.script.SessionReleased());
}

template <class Has>
auto Those(Has has) {
    auto classes = loaded::AllClasses();
    std::erase_if(classes, [&](const LoadedClass& kind) { return !has(kind); });
    return testing::ValuesIn(classes);
}
std::string NameOf(const testing::TestParamInfo<LoadedClass>& loaded) { return loaded.param.name; }

INSTANTIATE_TEST_SUITE_P(All, LoadedClasses, testing::ValuesIn(loaded::AllClasses()), NameOf);
INSTANTIATE_TEST_SUITE_P(All, ClassesWhoseLetsLoad, Those([](auto& kind) { return kind.properties[0].let_loads; }), NameOf);
INSTANTIATE_TEST_SUITE_P(All, ClassesThatClose, Those([](auto& kind) { return kind.closes; }), NameOf);
INSTANTIATE_TEST_SUITE_P(All, ClassesReadWithoutARow,
                         Those([](auto& kind) { return kind.missing == MissingRow::kReadAsNull; }), NameOf);
INSTANTIATE_TEST_SUITE_P(All, ClassesWithMisfits, Those([](auto& kind) { return !kind.misfits.empty(); }), NameOf);
INSTANTIATE_TEST_SUITE_P(All, ClassesWithPlainGets, Those([](auto& kind) { return !kind.properties.back().get_loads; }), NameOf);

}  // namespace
}  // namespace LumoSeminar
