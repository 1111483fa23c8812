#include <fmt/format.h>

#include <set>
#include <utility>

#include "frontend/commands/commands.h"
#include "frontend/commands/tour_page.h"
#include "frontend/creation.h"
#include "frontend/exit_codes.h"
#include "frontend/program.h"
#include "frontend/schema_folder.h"
#include "frontend/sessions.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kFreshDatabase = "Provider=Embedded;Data Source=:memory:";
constexpr const char* kTable = "Sem_Katalog_IT";
constexpr Int32 kCommon = -1;

std::string Counted(std::size_t count, std::string_view thing) {
    return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
}

std::string Counted(Int32 count, std::string_view thing) { return Counted(static_cast<std::size_t>(count), thing); }

std::string Entries(Int32 count) { return count == 1 ? "1 entry" : fmt::format("{} entries", count); }

// Each step tells what is to happen, does it, and compares. What it needs to know for the comparison it asks in calls
// that the page does not show.
class Tour {
  public:
    Tour(const GeneralOptions& options, TourPage& page) : options_(options), page_(page) {}

    void Walk() {
        page_.Title("A walk through the seminar catalogue");
        Connect();
        try {
            ListCatalogue();
            ReadProperties();
            AddSeminar();
            ChangeSeminar();
            RefuseQuote();
            StoreStatus();
            RemoveSeminar();
            ListOtherClient();
        } catch (...) {
            TakeBack();
            throw;
        }
        page_.Outcome(CountRows() == rows_at_first_, "the table is as it was before the tour");
        page_.End();
    }

  private:
    void Connect() {
        const bool fresh = !options_.connect;
        const Login login{options_.connect.value_or(kFreshDatabase), options_.user, options_.password};
        page_.Step("Connect", fresh ? "The tour makes a database of its own in memory. The tables come from schema.sql, the rows from "
                                      "sample.sql: T-SQL, the same files as for the server."
                                    : "The tour walks on the database that it was given. Where it finds no tables it makes them and "
                                      "fills in the sample. It adds one seminar and removes it again.");
        const auto trace = options_.trace ? TraceToStandardError() : nullptr;
        page_.Call("session->Connect(connection_text, user, password, 30)", [&] {
            const auto watcher = [this, trace](const LumoConnection::TracedCall& call) {
                page_.Watch(call);
                if (trace) trace(call);
            };
            session_ = OpenSession(login, MissingFile::kCreate, watcher).session;
        });
        const Script schema = ReadScript(SchemaFolder() / "schema.sql");
        const auto names = CreatedTables(schema);
        if (ExistingTables(session_, names).empty()) {
            Run(schema);
            Run(ReadScript(SchemaFolder() / "sample.sql"));
        }
        const auto tables = ExistingTables(session_, names);
        std::int64_t rows = 0;
        for (const auto& table : tables) rows += table.rows;
        page_.Outcome(tables.size() == names.size() && rows > 0,
                      fmt::format("{}, {}", Counted(tables.size(), "table"), Counted(static_cast<std::size_t>(rows), "row")));
        client_ = options_.client ? *options_.client : ActiveClient(session_);
        rows_at_first_ = CountRows();
    }

    void Run(const Script& script) {
        page_.Call(
            fmt::format("session->ExecuteSql(batch)   // for each batch of {}", script.path.filename().string()),
            [&] { RunScript(session_, script, [] {}); },
            [&] { return fmt::format("{} batches, all done", page_.Sent()); });
    }

    void ListCatalogue() {
        page_.Step(fmt::format("List the catalogue of client {}", client_),
                   "One statement fetches the keys: those of the client and those common to all, whose client number is "
                   "-1. The seminars behind the keys are not read yet.");
        const Int32 expected = CountRows(fmt::format("MDNr = {} or MDNr = {}", client_, kCommon));
        Bool listed;
        page_.Call(fmt::format("list->Init({}, session)", client_), [&] { listed = list_->Init(client_, session_); });
        page_.Outcome(listed && page_.Sent() == 1 && list_->Count() == expected,
                      fmt::format("{}, {}", Entries(list_->Count()), Counted(page_.Sent(), "statement")));
    }

    void ReadProperties() {
        page_.Step("Read a seminar",
                   "The first property that is asked for reads the whole row. From then on the seminar answers by itself.");
        if (list_->Count() == 0) {
            Raise(ErrorNumber::kPositionOutOfRange,
                  fmt::format("Client {} has no seminar in this database: the tour has nothing to show.", client_));
        }
        const auto seminar = list_->Item(1);
        Text title;
        page_.Call("list->Item(1)->SemTitel()", [&] { title = seminar->SemTitel(); });
        page_.Outcome(page_.Sent() == 1 && title == StoredText("SemTitel", seminar->SemID()), '"' + title + '"');
        Double hours = 0;
        page_.Call("list->Item(1)->Stunden()", [&] { hours = seminar->Stunden(); });
        page_.Outcome(page_.Sent() == 0, DefaultText(hours) + " hours, and nothing was sent");
    }

    void AddSeminar() {
        page_.Step("Add a seminar",
                   "A seminar with the key 0 is new. When it is written, the greatest key is looked up and the next one "
                   "taken. Umlauts come through as they are.");
        const Int32 greatest = GreatestKey();
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
        const Text stored = StoredText("SemTitel", own_key_);
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
        const Int32 before = CountRows();
        const auto seminar = New<clsSeminar>();
        seminar->Init(0, session_);
        seminar->MDNR(client_);
        const Int32 number =
            page_.FailingCall("seminar->SemTitel(\"Rock 'n' Roll im Büro\"), seminar->WriteToDatabase()", [&] {
                seminar->SemTitel("Rock 'n' Roll im Büro");
                seminar->WriteToDatabase();
            });
        const Int32 added = CountRows() - before;
        page_.Outcome(number == ErrorNumber::kStatementRefused && added == 0, Counted(added, "row") + " added");
    }

    void StoreStatus() {
        page_.Step("Status 0 is stored as 1",
                   "0 means \"not set\". Most such numbers are stored as NULL; the status is stored as 1.");
        const auto seminar = Own();
        page_.Call("seminar->Status()", [&] { seminar->Status(); });
        seminar->Status(0);
        page_.Call("seminar->Status(0), seminar->UpdateDatabase()", [&] { seminar->UpdateDatabase(); });
        const Int32 in_object = seminar->Status();
        const Int32 stored = Own()->Status();
        page_.Outcome(in_object == 0 && stored == 1,
                      fmt::format("the object still says {}, another object reads {}", in_object, stored));
    }

    void RemoveSeminar() {
        page_.Step("Remove it",
                   "The list deletes only what was read before: an entry that nobody looked at stays. The result is "
                   "always false, so look at Count.");
        const auto seminar = Own();
        list_->Add(seminar);
        const Int32 before = list_->Count();
        const Text remove = fmt::format("list->Remove(\"{}\")", seminar->Key());
        page_.Call(remove, [&] { list_->Remove(seminar->Key()); });
        page_.Outcome(page_.Sent() == 0 && list_->Count() == before,
                      fmt::format("{} before, {} now: it stays", before, list_->Count()));
        page_.Call("seminar->SemTitel()", [&] { seminar->SemTitel(); });
        page_.Call(remove, [&] { list_->Remove(seminar->Key()); });
        const Int32 left = CountRows(fmt::format("SemID = {}", own_key_));
        page_.Outcome(page_.Sent() == 1 && list_->Count() == before - 1 && left == 0,
                      fmt::format("{} now, and {} with this key in the table", list_->Count(), Counted(left, "row")));
        if (left == 0) own_key_ = 0;
    }

    void ListOtherClient() {
        const Int32 other_client = client_ == 2 ? 1 : 2;
        page_.Step(fmt::format("Client {} sees the common seminars, too", other_client),
                   "Another client has its own catalogue. The seminars common to all are in both.");
        const auto other = New<colSeminare>();
        page_.Call(fmt::format("other->Init({}, session)", other_client), [&] { other->Init(other_client, session_); });
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

    // Where the tour broke off: its seminar must not stay.
    void TakeBack() noexcept try {
        if (own_key_ != 0) {
            const auto list = New<colSeminare>();
            const auto seminar = list->Add(Own());
            seminar->SemTitel();
            list->Remove(1);
        }
    } catch (...) {
        fmt::print(stderr, "lumoseminar: seminar {} of the tour could not be removed.\n", own_key_);
    }

    Int32 CountRows(const Text& where = {}) { return To<Int32>(session_->LookupValue("count(*)", kTable, where)); }

    Int32 GreatestKey() {
        const Variant key = session_->LookupValue("max(SemID)", kTable, "");
        return key.IsNull() ? 0 : To<Int32>(key);
    }

    Text StoredText(const Text& column, Int32 key) {
        const Variant text = session_->LookupValue(column, kTable, fmt::format("SemID = {}", key));
        return text.IsNull() ? Text() : To<Text>(text);
    }

    const GeneralOptions& options_;
    TourPage& page_;
    Ref<DataSession> session_;
    Int32 client_ = 0;
    Int32 own_key_ = 0;
    Int32 rows_at_first_ = 0;
    Ref<colSeminare> list_ = New<colSeminare>();
};

int WalkTour(Context& context) {
    if (context.options.format != Format::kTable)
        throw UsageError("The tour is a text to read: it has no other format.");
    TourPage page;
    Tour(context.options, page).Walk();
    return page.Untold() == 0 ? kDone : kRefused;
}

}  // namespace

void AddTour(Program& program) {
    auto* command = program.AddCommand("tour", "Walk through what there is: calls, statements, outcomes");
    command->footer(
        "Without --connect the tour makes a database of its own in memory, so that it runs anywhere. On a given\n"
        "database it uses the tables that are there, or creates them with the sample; what it adds it removes again.\n"
        "Each outcome is checked: one that is not as told gives the exit code 1.");
    program.OnCommand(command, [&program] { return WalkTour(program.Work()); });
}

}  // namespace frontend
