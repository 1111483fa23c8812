#include <test_support/object_model.h>

using namespace LumoSeminar;
using test_support::ClassModel;
using test_support::Optional;
using test_support::Variable;
using Session = Ref<DataSession>;

namespace {

ClassModel WaitList() {
    CREATABLE(colSemWarteliste);
    METHOD(Add, Ref<clsSemWarteliste>, Int32);
    GET(Item, Ref<clsSemWarteliste>, Variant);
    GET(Count, Int32);
    METHOD(Remove, void, Variant);
    ENUMERATOR(clsSemWarteliste);
    METHOD(LoadListComplete, Variant, Session);
    METHOD(LoadListCompleteMA, Variant, Session, Int32, Int32);
    METHOD(LoadWartelisteMA, Variant, Session, Int32, Int32);
    METHOD(LoadInteressentenlisteMA, Variant, Session, Int32, Int32);
    METHOD(LoadListSeminar, Variant, Session, Int32);
    METHOD(LoadListSeminartermin, Variant, Session, Int32);
    NOT_PUBLIC(LoadList);
    return model;
}

ClassModel WaitListEntry() {
    CREATABLE(clsSemWarteliste);
    GET(objSemTermin, Ref<clsTermin>);
    GET(Key, Text);
    PROPERTY(SemWartelisteID, Int32);
    PROPERTY(ModId, Int16);
    PROPERTY(MDNR, Int32);
    PROPERTY(TNID, Int32);
    PROPERTY(ErfDat, DateTime);
    PROPERTY(Herkunft, Int16);
    PROPERTY(Wunschtermin, DateTime);
    PROPERTY(SemID, Int32);
    PROPERTY(SemTerminID, Int32);
    PROPERTY(Status, Byte);
    PROPERTY(GeaendertAm, DateTime);
    PROPERTY(GeaendertVon, Text);
    PROPERTY(DoSendInfos, Bool);
    METHOD(Init, Bool, Int32, Session);
    METHOD(WriteToDatabase, Bool, Variable<Int32>);
    METHOD(DeleteFromDatabase, Bool);
    METHOD(TeilnahmePruefen, Ref<colErrorMsg>, Optional<Variable<Bool>>, Optional<Variable<Bool>>, Optional<Variable<Bool>>);
    METHOD(TeilnahmeGenehmigen, Bool, Int32);
    METHOD(ZustimmungVerwerfen, Variant, Int32);
    NOT_PUBLIC(IsInitialized);
    NOT_PUBLIC(SetIsInitialized);
    NOT_PUBLIC(GetKostAN);
    return model;
}

}  // namespace

test_support::ClassModels test_support::WaitlistModel() { return {WaitList(), WaitListEntry()}; }
