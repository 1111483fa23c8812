#include <LumoSeminar/scheduling/colTermine.h>

#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/scheduling/clsTermin.h>

namespace LumoSeminar {
namespace {

constexpr Int32 kAllSeminars = -1;

// {Join} is kJoinParticipants or nothing, {Where} the conditions.
constexpr Sql<Text, Text> kSelect =
    "SELECT SemTerminID, EndeDatum, Titel, Code  FROM Sem_Termin_IT {Join}{Where}"
    " ORDER BY ISNULL(Endedatum,GetDate()) DESC,SemTerminID ASC ";

constexpr std::string_view kJoinParticipants =
    " INNER JOIN Sem_Teilnehmer_IT ON Sem_Termin_IT.SemTerminID = Sem_Teilnehmer_IT.SemTerminID";

constexpr Sql<Text> kYears =
    "SELECT DISTINCT YEAR(ISNULL(EndeDatum,getdate())) As Jahr FROM Sem_Termin_IT {Where} ORDER BY Jahr DESC ";

constexpr Sql<Text> kMonths =
    "SELECT DISTINCT CONVERT(datetime,'01.'+Str(Month(ISNULL(EndeDatum,getdate())))+'.'+"
    "Str(YEAR(ISNULL(EndeDatum,getdate()))),104) As JahrMonat FROM Sem_Termin_IT {Where} ORDER BY JahrMonat DESC ";

constexpr Sql<Text> kBudgetPeriods =
    "SELECT DISTINCT ltrim(Str(Month(ISNULL(Sem_BudgetJahr_IT.von,0))))+'/'+ "
    "ltrim(Str(YEAR(ISNULL(Sem_BudgetJahr_IT.von,0)))) + ' - ' +  ltrim(Str(Month(ISNULL(Sem_BudgetJahr_IT.bis,0))))+'/'  + "
    "ltrim(Str(YEAR(ISNULL(Sem_BudgetJahr_IT.bis,0)))) As JahrMonat  ,Sem_BudgetJahr_IT.von,Sem_BudgetJahr_IT.bis  "
    "FROM Sem_Termin_IT inner join Sem_BudgetJahr_IT on   Sem_Termin_IT.EndeDatum < Sem_BudgetJahr_IT.bis and "
    "Sem_Termin_IT.EndeDatum > Sem_BudgetJahr_IT.von {Where} ORDER BY JahrMonat DESC ";

constexpr Sql<Int32> kOfSeminar = "(SemID = {SemID}) AND ";
constexpr Sql<Int32> kOfClient = "(MDNr = {MDNr} OR MDNr = -1) ";

}  // namespace

colTermine::~colTermine() = default;

Bool colTermine::Add(Ref<clsTermin>& p_clsTermin) try {
    const Text key = p_clsTermin->Key();
    p_colItems->Add(p_clsTermin, key);
    p_clsTermin = p_colItems->Item(key);
    return false;
} catch (...) {
    RaiseLabelled(" LumoSeminar.colTermine.Add");
}

Variant colTermine::ChangeKey(const Text& p_strOldKey, const Text& p_strNewKey) {
    p_colItems->Add(p_colItems->Item(p_strOldKey), p_strNewKey);
    p_colItems->Remove(p_strOldKey);
    return {};
}

Int32 colTermine::Count() try { return p_colItems->Count(); } catch (...) {
    RaiseLabelled("LumoSeminar.colTermine.Count");
}

Ref<clsTermin> colTermine::Item(const Variant& vntIndexKey) try {
    return p_colItems->ItemOrNothing(vntIndexKey);
} catch (...) {
    RaiseLabelled(" LumoSeminar.colTermine.Item");
}

Bool colTermine::Remove(const Variant& p_vntIndexKey) try {
    if (!Item(p_vntIndexKey)->DeleteFromDatabase()) return false;
    p_colItems->Remove(p_vntIndexKey);
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.colTermine.Remove");
}

Ref<RecordSet> colTermine::Gruppen(Int32 p_lngGruppierungsart) try {
    Text sql;
    if (p_lngGruppierungsart == 1) sql = kYears(Conditions());
    if (p_lngGruppierungsart == 2) sql = kMonths(Conditions());
    if (p_lngGruppierungsart == 3) sql = kBudgetPeriods(Conditions());
    if (!session_->OpenSelect(sql)) return {};
    return session_->Recordset();
} catch (...) {
    RaiseLabelled("LumoSeminar.colTermine.Gruppen");
}

Enumerator<clsTermin> colTermine::NewEnum() { return Enumerator(p_colItems); }

Bool colTermine::Init(Int32 p_lngSemID, Int32 p_lngMDNr, const Ref<DataSession>& p_objData,
                      const Text& p_strFilterString, Bool p_blnFromTeilnehmer) try {
    if (!ConnectionIsOpen(p_objData)) return false;
    session_ = p_objData;
    p_lngSemID_ = p_lngSemID;
    p_lngMDNr_ = p_lngMDNr;
    p_strFilterString_ = p_strFilterString;
    p_blnFromTeilnehmer_ = p_blnFromTeilnehmer;
    p_colItems = New<Collection<clsTermin>>();
    return LoadKeysFromDatabase();
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColTermine.Init");
}

Bool colTermine::LoadKeysFromDatabase() try {
    const Text join(p_blnFromTeilnehmer_ ? kJoinParticipants : std::string_view());
    if (!session_->OpenSelect(kSelect(join, " " + Conditions()))) return false;
    for (const Ref<RecordSet> rows = session_->Recordset(); !rows->Eof(); rows->MoveNext()) {
        const Fields fields = rows->Fields();
        auto date = New<clsTermin>();
        date->Init(To<Int32>(fields.Item(0).Value()), session_);
        date->EndeDatum(common::FieldOr(fields.Item(1), Today()), false);
        date->Titel(common::FieldOr(fields.Item(2), Text()), false);
        date->Code(common::FieldOr(fields.Item(3), Text()), false);
        p_colItems->Add(date, date->Key());
    }
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColTermine.LoadKeysFromDatabase");
}

Text colTermine::Conditions() const {
    Text conditions = "WHERE ";
    if (p_lngSemID_ != kAllSeminars) conditions += kOfSeminar(p_lngSemID_);
    conditions += kOfClient(p_lngMDNr_);
    conditions += p_strFilterString_;
    return conditions;
}

}  // namespace LumoSeminar
