#include <test_support/object_model.h>

using namespace LumoSeminar;
using test_support::ClassModel;
using test_support::Optional;
using Session = Ref<DataSession>;

namespace {

ClassModel ParticipantList() {
    CREATABLE(colTeilnehmer);
    GET(Count, Int32);
    GET(Item, Ref<clsTeilnehmer>, Variant);
    ENUMERATOR(clsTeilnehmer);
    METHOD(Init, Bool, Int32, Session, Optional<Text>);
    METHOD(ChangeKey, void, Text, Text);
    METHOD(Add, Ref<clsTeilnehmer>, Int32);
    METHOD(AddEmptyObject, Ref<Object>);
    METHOD(Remove, Bool, Variant);
    METHOD(RemoveColOnly, Bool, Variant);
    NOT_PUBLIC(LoadKeysFromDatabase);
    NOT_PUBLIC(RemoveALL);
    return model;
}

ClassModel Participant() {
    NOT_CREATABLE(clsTeilnehmer, colTeilnehmer, clsWBPerson);
    GET(colTermine, Ref<colTermine>);
    GET(clsTermin, Ref<clsTermin>);
    PROPERTY(objKosten, Ref<colTeilnehmerKosten>);
    GET(Key, Text);
    PROPERTY(DoSendInfos, Bool);
    METHOD(Init, Bool, Int32, Session, Optional<Int32>);
    METHOD(WriteToDatabase, Bool, Int32);
    METHOD(DeleteFromDatabase, Bool);
    PROPERTY(TeilnehmerID, Int32);
    PROPERTY(SemTerminID, Int32);
    PROPERTY(MDNR, Int32);
    PROPERTY(TNID, Int32);
    PROPERTY(ErfDatum, DateTime);
    PROPERTY(ErfUser, Text);
    PROPERTY(Teilnahme, Int16);
    PROPERTY(Herkunft, Int32);
    PROPERTY(BeginnDatum, DateTime);
    PROPERTY(EndeDatum, DateTime);
    PROPERTY(BegUhrzeit, DateTime);
    PROPERTY(EndUhrzeit, DateTime);
    PROPERTY(storniertam, DateTime);
    PROPERTY(StornoGrund, Int32);
    PROPERTY(StornoKosten, Int16);
    PROPERTY(Ergebnis, Int32);
    PROPERTY(Bemerkung, Text);
    PROPERTY(Name, Text);
    PROPERTY(Vorname, Text);
    PROPERTY(ANNr, Int32);
    PROPERTY(BWID, Int32);
    PROPERTY(MDPersNr, Text);
    PROPERTY(Kost, Int32);
    PROPERTY(LAID, Int32);
    GET(NameVorname, Text);
    GET(PersGr, Text);
    PROPERTY(PersNr, Text);
    PROPERTY(NewStorno, Bool);
    METHOD(StornoTeilnehmerInWarteliste, void);
    PROPERTY(objWBPerson, Ref<clsWBPerson>);
    PROPERTY(TeilnehmerKosten, Single);
    METHOD(CheckTeilnehmerAnmeldung, Bool, Optional<Bool>, Optional<Bool>, Optional<Bool>);
    GET(colErrorsAnmeldung, Ref<colErrorMsg>);
    NOT_PUBLIC(PropertiesInit);
    NOT_PUBLIC(InitPropertiesByRecordset);
    NOT_PUBLIC(CheckAnmeldungSeminar);
    NOT_PUBLIC(CheckAnmeldungStorno);
    NOT_PUBLIC(CheckZeitraum);
    NOT_PUBLIC(CheckTeilnahme);
    NOT_PUBLIC(CheckVoraussetzung);
    return model;
}

ClassModel CostList() {
    CREATABLE(colTeilnehmerKosten);
    METHOD(Add, Ref<clsTeilnehmerKosten>, Int32);
    GET(Item, Ref<clsTeilnehmerKosten>, Variant);
    GET(Count, Int32);
    METHOD(Remove, void, Variant);
    ENUMERATOR(clsTeilnehmerKosten);
    METHOD(Init, Variant, Int32, Session);
    NOT_PUBLIC(LoadKeysFromDatabase);
    return model;
}

ClassModel CostLine() {
    CREATABLE(clsTeilnehmerKosten);
    PROPERTY(TeilnehmerID, Int32);
    PROPERTY(KostenID, Int32);
    PROPERTY(KostenArtID, Int32);
    PROPERTY(Kostenbetrag, Single);
    PROPERTY(Kost, Int32);
    METHOD(Init, Variant, Int32, Int32, Session);
    METHOD(WriteToDatabase, Bool);
    METHOD(DeleteFromDatabase, Bool);
    NOT_PUBLIC(IsInitialized);
    NOT_PUBLIC(InitPropertiesByRecordset);
    return model;
}

ClassModel BudgetYearList() {
    CREATABLE(colSemBudgetJahre);
    METHOD(GetBudgetJahr, Ref<clsSemBudgetJahr>, DateTime);
    METHOD(Add, Ref<clsSemBudgetJahr>, Int32);
    GET(Item, Ref<clsSemBudgetJahr>, Variant);
    GET(Count, Int32);
    METHOD(Remove, void, Variant);
    ENUMERATOR(clsSemBudgetJahr);
    METHOD(Init, Variant, Session);
    NOT_PUBLIC(LoadKeysFromDatabase);
    return model;
}

ClassModel BudgetYear() {
    CREATABLE(clsSemBudgetJahr);
    PROPERTY(JahrID, Int32);
    PROPERTY(Von, DateTime);
    PROPERTY(Bis, DateTime);
    METHOD(Init, Variant, Int32, Session);
    NOT_PUBLIC(IsInitialized);
    NOT_PUBLIC(InitPropertiesByRecordset);
    return model;
}

}  // namespace

test_support::ClassModels test_support::EnrolmentModel() {
    return {ParticipantList(), Participant(), CostList(), CostLine(), BudgetYearList(), BudgetYear()};
}
