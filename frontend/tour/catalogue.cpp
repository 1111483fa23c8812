#include <fmt/format.h>

#include <optional>
#include <set>

#include "frontend/tour/chapters.h"
#include "frontend/tour/fresh_keys.h"
#include "frontend/tour/ground.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kTable = "Sem_Katalog_IT";
constexpr Int32 kCommon = -1;

// Each step tells what is to happen, does it, and compares.
class CatalogueChapter {
  public:
    explicit CatalogueChapter(TourGround& ground)
        : ground_(ground), page_(ground.page), session_(ground.session), client_(ground.client) {}

    void Walk() {
        const Int32 rows_at_first = ground_.CountRows(kTable);
        fresh_keys_.emplace(session_);
        ListCatalogue();
        ReadProperties();
        AddSeminar();
        ChangeSeminar();
        RefuseQuote();
        StoreStatus();
        RemoveSeminar();
        ListOtherClient();
        fresh_keys_.reset();
        page_.Outcome(ground_.CountRows(kTable) == rows_at_first, "the table is as it was before the tour");
    }

  private:
    void ListCatalogue() {
        page_.Step(fmt::format("List the catalogue of client {}", client_),
                   "One statement fetches the keys: those of the client and those common to all, whose client number is "
                   "-1. The seminars behind the keys are not read yet.");
        const Int32 expected = ground_.CountRows(kTable, fmt::format("MDNr = {} or MDNr = {}", client_, kCommon));
        Bool listed;
        page_.Call(fmt::format("list->Init({}, session)", client_), [&] { listed = list_->Init(client_, session_); });
        page_.Outcome(listed && page_.Sent() == 1 && list_->Count() == expected,
                      fmt::format("{}, {}", Entries(list_->Count()), Counted(page_.Sent(), "statement")));
    }

    void ReadProperties() {
        page_.Step("Read a seminar",
                   "The first property that is asked for reads the whole row. From then on the seminar answers by itself.");
        const auto seminar = list_->Item(1);
        Text title;
        page_.Call("list->Item(1)->SemTitel()", [&] { title = seminar->SemTitel(); });
        page_.Outcome(page_.Sent() == 1 && title == StoredTitle(seminar->SemID()), '"' + title + '"');
        Double hours = 0;
        page_.Call("list->Item(1)->Stunden()", [&] { hours = seminar->Stunden(); });
        page_.Outcome(page_.Sent() == 0, DefaultText(hours) + " hours, and nothing was sent");
    }

    void AddSeminar() {
        page_.Step("Add a seminar",
                   "A seminar with the key 0 is new. When it is written, the greatest key is looked up and the next one "
                   "taken. Umlauts come through as they are.");
        const Int32 greatest = ground_.LargestKey("SemID", kTable);
        const Text title = "Größen schätzen: Übungen für Prüferinnen und Prüfer, Maß für Maß";
        const auto seminar = New<clsSeminar>();
        page_.Call("seminar->Init(0, session)", [&] { seminar->Init(0, session_); });
        page_.Call("seminar->MDNR(...), ->SemCode(...), ->SemTitel(...), ->KostenProTN(...)", [&] {
            seminar->MDNR(client_);
            seminar->SemCode("ÜB-99");
            seminar->SemTitel(title);
            seminar->KostenProTN(Money::FromUnits(149'5000));
        });
        const bool nothing_sent = page_.Sent() == 0;
        Bool written;
        page_.Call("seminar->WriteToDatabase()", [&] {
            written = seminar->WriteToDatabase();
            own_key_ = seminar->SemID();
        });
        own_.emplace(fmt::format("seminar {}", own_key_), [this] { RemoveOwn(); });
        const Text stored = StoredTitle(own_key_);
        page_.Outcome(written && nothing_sent && page_.Sent() == 2 && own_key_ == greatest + 1 && stored == title,
                      fmt::format("key {}, stored as \"{}\"", own_key_, stored));
    }

    void ChangeSeminar() {
        page_.Step("Change it",
                   "Read first, then change, then update: a change only lies in the object until the update sends all "
                   "columns. Without a read before, the update would send nothing.");
        const auto seminar = Own();
        Bool without_read;
        page_.Call("seminar->UpdateDatabase()", [&] { without_read = seminar->UpdateDatabase(); });
        page_.Outcome(!without_read && page_.Sent() == 0, "false: the row was not read before");
        page_.Call("seminar->Stunden()", [&] { seminar->Stunden(); });
        const bool read = page_.Sent() == 1;
        page_.Call("seminar->Stunden(7.5)", [&] { seminar->Stunden(7.5); });
        const bool only_let = page_.Sent() == 0;
        Bool updated;
        page_.Call("seminar->UpdateDatabase()", [&] { updated = seminar->UpdateDatabase(); });
        const bool sent = page_.Sent() == 1;
        const Double stored = Own()->Stunden();
        page_.Outcome(read && only_let && updated && sent && stored == 7.5,
                      fmt::format("true: another object reads {} hours", DefaultText(stored)));
    }

    void RefuseQuote() {
        page_.Step("A title with a single quote",
                   "Texts go into a statement as they are, so a quote ends the literal too early and the database refuses "
                   "the statement. The error carries a label of each operation that it passed.");
        const Int32 before = ground_.CountRows(kTable);
        const auto seminar = New<clsSeminar>();
        seminar->Init(0, session_);
        seminar->MDNR(client_);
        const Int32 number =
            page_.FailingCall("seminar->SemTitel(\"Rock 'n' Roll im Büro\"), seminar->WriteToDatabase()", [&] {
                seminar->SemTitel("Rock 'n' Roll im Büro");
                seminar->WriteToDatabase();
            });
        const Int32 added = ground_.CountRows(kTable) - before;
        page_.Outcome(number == ErrorNumber::kStatementRefused && added == 0, Counted(added, "row") + " added");
    }

    void StoreStatus() {
        page_.Step("Status 0 is stored as 1",
                   "0 means \"not set\". Most such numbers are stored as NULL; the status is stored as 1.");
        const auto seminar = Own();
        page_.Call("seminar->Status()", [&] { seminar->Status(); });
        seminar->Status(0);
        page_.Call("seminar->Status(0), seminar->UpdateDatabase()", [&] { Demand(seminar->UpdateDatabase(), session_); });
        const Int32 in_object = seminar->Status();
        const Int32 stored = Own()->Status();
        page_.Outcome(in_object == 0 && stored == 1,
                      fmt::format("the object still says {}, another object reads {}", in_object, stored));
    }

    void RemoveSeminar() {
        page_.Step("Remove it",
                   "The list deletes only what was read before, and only a seminar without dates: it lists them first. "
                   "The result is always false, so look at Count.");
        const auto seminar = Own();
        list_->Add(seminar);
        const Int32 before = list_->Count();
        const Text remove = fmt::format("list->Remove(\"{}\")", seminar->Key());
        page_.Call(remove, [&] { list_->Remove(seminar->Key()); });
        page_.Outcome(page_.Sent() == 0 && list_->Count() == before,
                      fmt::format("{} before, {} now: it stays", before, list_->Count()));
        page_.Call("seminar->SemTitel()", [&] { seminar->SemTitel(); });
        page_.Call(remove, [&] { list_->Remove(seminar->Key()); });
        const Int32 left = ground_.CountRows(kTable, fmt::format("SemID = {}", own_key_));
        page_.Outcome(page_.Sent() == 2 && list_->Count() == before - 1 && left == 0,
                      fmt::format("{} now, and {} with this key in the table", list_->Count(), Counted(left, "row")));
        if (left == 0) own_->Gone();
    }

    void ListOtherClient() {
        const Int32 other_client = client_ == 2 ? 1 : 2;
        page_.Step(fmt::format("Client {} sees the common seminars, too", other_client),
                   "Another client has its own catalogue. The seminars common to all are in both.");
        const auto other = New<colSeminare>();
        page_.Call(fmt::format("other->Init({}, session)", other_client),
                   [&] { Demand(other->Init(other_client, session_), session_); });
        const bool one_statement = page_.Sent() == 1;
        std::set<Int32> common;
        bool strangers = false;
        page_.Call(
            "for (const auto& seminar : other->NewEnum()) seminar->MDNR()",
            [&] { common = CommonKeys(other, other_client, strangers); },
            [&] { return fmt::format("{}, one an entry", page_.Sent()); });
        const bool one_an_entry = page_.Sent() == static_cast<std::size_t>(other->Count());
        const bool the_same = common == CommonKeys(list_, client_, strangers);
        page_.Outcome(one_statement && one_an_entry && the_same && !strangers,
                      fmt::format("{}, {} of them common, {} in the catalogue of client {}", Entries(other->Count()),
                                  common.size(), the_same ? "the same as" : "others than", client_));
    }

    static std::set<Int32> CommonKeys(const Ref<colSeminare>& list, Int32 client, bool& strangers) {
        std::set<Int32> common;
        for (const auto& seminar : list->NewEnum()) {
            const Int32 owner = seminar->MDNR();
            if (owner == kCommon) common.insert(seminar->SemID());
            strangers = strangers || (owner != kCommon && owner != client);
        }
        return common;
    }

    // A new object for the seminar of the tour.
    Ref<clsSeminar> Own() {
        auto seminar = New<clsSeminar>();
        seminar->Init(own_key_, session_);
        return seminar;
    }

    Text StoredTitle(Int32 key) { return ground_.StoredText("SemTitel", kTable, fmt::format("SemID = {}", key)); }

    void RemoveOwn() {
        const auto list = New<colSeminare>();
        const auto seminar = list->Add(Own());
        seminar->SemTitel();
        list->Remove(1);
    }

    TourGround& ground_;
    TourPage& page_;
    const Ref<DataSession>& session_;
    const Int32 client_;
    std::optional<FreshKeys> fresh_keys_;
    Int32 own_key_ = 0;
    std::optional<TakeBack> own_;
    Ref<colSeminare> list_ = New<colSeminare>();
};

}  // namespace

void WalkCatalogue(TourGround& ground) { CatalogueChapter(ground).Walk(); }

}  // namespace frontend
