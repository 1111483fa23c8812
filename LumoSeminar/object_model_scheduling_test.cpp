#include <test_support/object_model.h>

using namespace LumoSeminar;
using test_support::ClassModel;
using test_support::Optional;
using test_support::Variable;
using Session = Ref<DataSession>;

namespace {

ClassModel DateList() {
    CREATABLE(colTermine);
    METHOD(Add, Bool, Variable<Ref<clsTermin>>);
    METHOD(ChangeKey, Variant, Text, Text);
    GET(Count, Int32);
    GET(Item, Ref<clsTermin>, Variant);
    METHOD(Remove, Bool, Variant);
    GET(Gruppen, Ref<RecordSet>, Int32);
    ENUMERATOR(clsTermin);
    METHOD(Init, Bool, Int32, Int32, Session, Optional<Text>, Optional<Bool>);
    NOT_PUBLIC(LoadKeysFromDatabase);
    return model;
}

ClassModel Date() {
    CREATABLE(clsTermin);
    GET(clscolTeilnehmer, Ref<colTeilnehmer>);
    GET(clscolSemTerminSchwerpunkte, Ref<colSemTerminSchwerpunkte>);
    GET(colTerminTage, Ref<colTerminTage>);
    GET(colWarteliste, Ref<colSemWarteliste>);
    GET(objSerie, Ref<clsSerie>);
    GET(objSeminar, Ref<clsSeminar>);
    GET(Veranstalter, Ref<clsTerminVeranstalter>);
    GET(VeranstaltungsOrt, Ref<clsTerminVeranstaltungsOrt>);
    METHOD(Init, Bool, Int32, Session);
    GET(SachbearbeiterEmail, Text);
    PROPERTY(SemTerminID, Int32);
    PROPERTY(MDNR, Int32);
    PROPERTY(Status, Byte);
    PROPERTY(Code, Text, Optional<Bool>);
    PROPERTY(Titel, Text, Optional<Bool>);
    PROPERTY(SemID, Int32);
    PROPERTY(InhaltZielID, Int32);
    PROPERTY(SelfService, Int16);
    PROPERTY(Sachbearbeiter, Int32);
    PROPERTY(BeginnDatum, DateTime);
    PROPERTY(EndeDatum, DateTime, Optional<Bool>);
    PROPERTY(BeginnUhrzeit, DateTime);
    PROPERTY(EndeUhrzeit, DateTime);
    PROPERTY(MinTeil, Int32);
    PROPERTY(MaxTeil, Int32);
    PROPERTY(OptTeil, Int32);
    PROPERTY(Stunden, Double);
    PROPERTY(Sitzungen, Int32);
    PROPERTY(SerienID, Int32);
    PROPERTY(KostenProTN, Money);
    PROPERTY(StornoKosten, Money);
    PROPERTY(Abbruchkosten, Money);
    PROPERTY(StornoDatum, DateTime);
    PROPERTY(AbbruchDatum, DateTime);
    PROPERTY(AnmeldefristDatum, DateTime);
    PROPERTY(BeurteilungID, Int32);
    PROPERTY(VeranstalterID, Int32);
    PROPERTY(VeranstaltungsOrtID, Int32);
    PROPERTY(Bemerkung, Text);
    GET(StatusBezLang, Text);
    GET(StatusBezKurz, Text);
    GET(Key, Text);
    METHOD(WriteToDatabase, Bool);
    METHOD(DeleteFromDatabase, Bool);
    GET(AnzFreiePlaetze, Int16);
    GET(AnzAnmeldungen, Int16);
    PROPERTY(NewDelOnlyTag, Bool);
    NOT_PUBLIC(objData);
    NOT_PUBLIC(PropertiesInit);
    NOT_PUBLIC(InitPropertiesByRecordset);
    NOT_PUBLIC(ErzeugeTerminTage);
    NOT_PUBLIC(TerminTageUpdate);
    return model;
}

ClassModel SeriesList() {
    CREATABLE(colSerie);
    METHOD(Add, Ref<clsSerie>, Ref<clsSerie>);
    METHOD(Init, Bool, Session);
    GET(Item, Ref<clsSerie>, Variant);
    GET(Count, Int32);
    METHOD(Remove, void, Variant);
    ENUMERATOR(clsSerie);
    NOT_PUBLIC(LoadKeysFromDataBase);
    return model;
}

ClassModel Series() {
    CREATABLE(clsSerie);
    GET(Key, Text);
    METHOD(Init, Bool, Int32, Session);
    METHOD(UpdateProperty, void, Ref<clsSerie>);
    METHOD(WriteToDatabase, Bool);
    METHOD(DeleteOldSerie, void, Int32);
    METHOD(RemoveSerie, Bool);
    PROPERTY(SerienID, Int32);
    PROPERTY(BeginnUhrzeit, DateTime);
    PROPERTY(EndeUhrzeit, DateTime);
    PROPERTY(Tagefolge, Byte);
    PROPERTY(Taeglich, Byte);
    PROPERTY(Woche, Int32);
    PROPERTY(Montag, Int16);
    PROPERTY(Dienstag, Int16);
    PROPERTY(Mittwoch, Int16);
    PROPERTY(Donnerstag, Int16);
    PROPERTY(Freitag, Int16);
    PROPERTY(Samstag, Int16);
    PROPERTY(Sonntag, Int16);
    NOT_PUBLIC(DeleteFromDatabase);
    NOT_PUBLIC(PropertiesInit);
    NOT_PUBLIC(InitPropertiesByRecordset);
    return model;
}

ClassModel DayList() {
    CREATABLE(colTerminTage);
    METHOD(Add, Ref<clsTerminTag>, Ref<clsTerminTag>);
    METHOD(Init, Bool, Int32, Session);
    PROPERTY(SemTerminID, Int32);
    PROPERTY(Termin, DateTime);
    GET(Item, Ref<clsTerminTag>, Variant);
    GET(Count, Int32);
    METHOD(Remove, void, Variant);
    ENUMERATOR(clsTerminTag);
    METHOD(NewTerminTag, void, DateTime, DateTime, DateTime);
    NOT_PUBLIC(LoadKeysFromDataBase);
    NOT_PUBLIC(AddTermineEvery);
    NOT_PUBLIC(AddTermineEndeEvery);
    NOT_PUBLIC(AddTermineWeekly);
    NOT_PUBLIC(AddEndeTermineWeekly);
    return model;
}

ClassModel Day() {
    NOT_CREATABLE(clsTerminTag, colTerminTage);
    GET(Key, Text);
    METHOD(Init, Bool, DateTime, Int32, Session);
    METHOD(UpdateDatabase, Bool);
    METHOD(WriteToDatabase, Bool);
    METHOD(RemoveTerminTag, Bool);
    PROPERTY(SemTerminID, Int32);
    PROPERTY(Termin, DateTime);
    PROPERTY(BegUhr, DateTime);
    PROPERTY(EndUhr, DateTime);
    NOT_PUBLIC(DeleteFromDatabase);
    NOT_PUBLIC(PropertiesInit);
    NOT_PUBLIC(InitPropertiesByRecordset);
    return model;
}

ClassModel Organiser() {
    CREATABLE(clsTerminVeranstalter);
    GET(Name, Text);
    GET(PLZ, Text);
    GET(Ort, Text);
    GET(Strasse, Text);
    GET(Ansprechpartner, Text);
    GET(Telefon, Text);
    GET(Fax, Text);
    GET(Sachbearbeiter, Text);
    GET(Email, Text);
    GET(URL, Text);
    GET(Mobiltelefon, Text);
    GET(Bemerkungen, Text);
    METHOD(Init, Bool, Int32, Session);
    return model;
}

ClassModel Venue() {
    CREATABLE(clsTerminVeranstaltungsOrt);
    GET(Name, Text);
    GET(PLZ, Text);
    GET(Ort, Text);
    GET(Strasse, Text);
    GET(Ansprechpartner, Text);
    GET(Telefon, Text);
    GET(Fax, Text);
    GET(Sachbearbeiter, Text);
    METHOD(Init, Bool, Int32, Session);
    NOT_PUBLIC(Email);
    NOT_PUBLIC(URL);
    NOT_PUBLIC(Mobiltelefon);
    NOT_PUBLIC(Bemerkungen);
    return model;
}

}  // namespace

test_support::ClassModels test_support::SchedulingModel() {
    return {DateList(), Date(), SeriesList(), Series(), DayList(), Day(), Organiser(), Venue()};
}
