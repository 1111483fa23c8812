#include <test_support/object_model.h>

using namespace LumoSeminar;
using test_support::ClassModel;
using test_support::Optional;
using test_support::Variable;
using Session = Ref<DataSession>;

namespace {

ClassModel NeedList() {
    CREATABLE(colANWBBedarf);
    METHOD(Add, Ref<clsANWBBedarf>, Int32);
    GET(Item, Ref<clsANWBBedarf>, Variant);
    GET(Count, Int32);
    METHOD(Remove, void, Variant);
    ENUMERATOR(clsANWBBedarf);
    METHOD(LoadBedarfArbeitnehmer, Variant, Session, Int32, Int32);
    NOT_PUBLIC(LoadListe);
    return model;
}

ClassModel Need() {
    CREATABLE(clsANWBBedarf);
    GET(Key, Text);
    PROPERTY(WBID, Int32);
    PROPERTY(MDNR, Int32);
    PROPERTY(ANNr, Int32);
    PROPERTY(WBS, Int32);
    PROPERTY(ErfDat, DateTime);
    PROPERTY(Erford, DateTime);
    PROPERTY(Erfuellt, DateTime);
    PROPERTY(ErfUser, Text);
    PROPERTY(BedarfErfuellt, Byte);
    PROPERTY(Bemerkungen, Text);
    PROPERTY(DoSendInfos, Bool);
    METHOD(Init, Bool, Int32, Session);
    METHOD(WriteToDatabase, Bool, Int32);
    METHOD(DeleteFromDatabase, Bool);
    METHOD(TeilnahmeZustimmen, Variant, Int32, Int32);
    METHOD(BedarfAblehnen, Bool, Int32);
    PROPERTY(ConnectionString, Text);
    GET(BenutzerHatGenehmigungsrechte, Bool, Int32);
    GET(StatusText, Text);
    NOT_PUBLIC(IsInitialized);
    NOT_PUBLIC(SetIsInitialized);
    NOT_PUBLIC(SetBedarfStatus);
    return model;
}

ClassModel Person() {
    CREATABLE(clsWBPerson);
    PROPERTY(MDNR, Int32);
    PROPERTY(PersonID, Int32);
    PROPERTY(ModId, Byte);
    GET(IsArbeitnehmer, Bool);
    GET(IsBewerber, Bool);
    GET(IsLeiharbeiter, Bool);
    PROPERTY(Vorname, Text);
    PROPERTY(Nachname, Text);
    PROPERTY(PersNr, Text);
    PROPERTY(DoSendInfos, Bool);
    METHOD(Init, Bool, Int32, Int32, Byte, Optional<Variable<Session>>, Optional<Text>, Optional<Variable<Text>>,
           Optional<Variable<Text>>);
    GET(colWeiterbildungen, Ref<Collection<clsTeilnehmer>>);
    GET(PersGr, Text);
    GET(colWarteliste, Ref<colSemWarteliste>);
    GET(colInteressentenliste, Ref<colSemWarteliste>);
    GET(colWBBedarf, Ref<colANWBBedarf>);
    METHOD(BedarfErfassen, Int32, Int32, Int32);
    METHOD(TeilnahmeZustimmen, Variant, Int32, Int32, Optional<Variable<Bool>>);
    METHOD(TeilnahmePruefen, Ref<colErrorMsg>, Variable<Int32>, Optional<Variable<Bool>>, Optional<Variable<Bool>>,
           Optional<Variable<Bool>>);
    METHOD(TeilnahmeGenehmigen, Bool, Variable<Int32>, Variable<Int32>, Optional<Variable<Bool>>);
    PROPERTY(ConnectionString, Text);
    NOT_PUBLIC(IsInitializedPerson);
    NOT_PUBLIC(LoadWeiterbildungenPerson);
    NOT_PUBLIC(GetKostAN);
    return model;
}

}  // namespace

test_support::ClassModels test_support::NeedsModel() { return {NeedList(), Need(), Person()}; }
