#include <test_support/object_model.h>

using namespace LumoSeminar;
using test_support::ClassModel;
using Session = Ref<DataSession>;

namespace {

ClassModel SeminarList() {
    CREATABLE(colSeminare);
    METHOD(Add, Ref<clsSeminar>, Ref<clsSeminar>);
    METHOD(Init, Bool, Int32, Session);
    GET(Count, Int32);
    GET(Item, Ref<clsSeminar>, Variant);
    ENUMERATOR(clsSeminar);
    METHOD(Remove, Bool, Variant);
    NOT_PUBLIC(LoadKeysFromDatabase);
    return model;
}

ClassModel Seminar() {
    CREATABLE(clsSeminar);
    GET(Key, Text);
    GET(colTermine, Ref<colTermine>);
    GET(colSemSchwerpunkte, Ref<colSemSchwerpunkte>);
    GET(colSemZielgruppen, Ref<colSemZielgruppen>);
    GET(colInteressentenliste, Ref<colSemWarteliste>);
    METHOD(Init, Bool, Int32, Session);
    METHOD(WriteToDatabase, Bool);
    METHOD(UpdateDatabase, Bool);
    PROPERTY(SemID, Int32);
    PROPERTY(MDNR, Int32);
    PROPERTY(SemCode, Text);
    PROPERTY(SemTitel, Text);
    PROPERTY(Sachbearbeiter, Int32);
    PROPERTY(Status, Int32);
    PROPERTY(InhaltZielID, Int32);
    GET(ZielInhalt, Ref<clsSemZielInhalt>);
    PROPERTY(TeilnehmerMIN, Int32);
    PROPERTY(TeilnehmerMAX, Int32);
    PROPERTY(TeilnehmerOPT, Int32);
    PROPERTY(Stunden, Double);
    PROPERTY(Sitzungen, Int32);
    PROPERTY(SerienID, Int32);
    PROPERTY(KostenProTN, Money);
    PROPERTY(Anzahlung, Money);
    PROPERTY(StornoKosten, Money);
    PROPERTY(Abbruchkosten, Money);
    PROPERTY(FristStorno, Int32);
    PROPERTY(FristAbbruch, Int32);
    PROPERTY(FristAnmeldung, Int32);
    PROPERTY(Wiederholung, Int32);
    NOT_PUBLIC(DeleteFromDatabase);
    NOT_PUBLIC(PropertiesInit);
    NOT_PUBLIC(InitPropertiesByRecordset);
    return model;
}

ClassModel FocusAreasOfSeminar() {
    CREATABLE(colSemSchwerpunkte);
    GET(Item, Ref<clsSemSchwerpunkt>, Variant);
    GET(Count, Int32);
    METHOD(Remove, Bool, Variant);
    ENUMERATOR(clsSemSchwerpunkt);
    METHOD(Add, Ref<clsSemSchwerpunkt>);
    METHOD(Init, Bool, Int32, Session);
    NOT_PUBLIC(LoadKeysFromDatabase);
    return model;
}

ClassModel FocusAreaOfSeminar() {
    NOT_CREATABLE(clsSemSchwerpunkt, colSemSchwerpunkte);
    GET(Key, Text);
    PROPERTY(SemID, Int32);
    PROPERTY(SchwerpunktID, Int32);
    PROPERTY(WBS, Text);
    METHOD(Init, Bool, Int32, Int32, Session);
    METHOD(WriteToDatabase, Bool);
    NOT_PUBLIC(DeleteFromDatabase);
    NOT_PUBLIC(PropertiesInit);
    NOT_PUBLIC(InitPropertiesByRecordset);
    return model;
}

ClassModel FocusAreasOfDate() {
    CREATABLE(colSemTerminSchwerpunkte);
    GET(Item, Ref<clsSemTerminSchwerpunkt>, Variant);
    GET(Count, Int32);
    METHOD(Remove, Bool, Variant);
    ENUMERATOR(clsSemTerminSchwerpunkt);
    METHOD(Add, Bool, Ref<clsSemTerminSchwerpunkt>);
    METHOD(Init, Bool, Int32, Session);
    NOT_PUBLIC(LoadKeysFromDatabase);
    NOT_PUBLIC(RemoveAll);
    return model;
}

ClassModel FocusAreaOfDate() {
    CREATABLE(clsSemTerminSchwerpunkt);
    GET(Key, Text);
    PROPERTY(SemTerminID, Int32);
    PROPERTY(SchwerpunktID, Int32);
    PROPERTY(WBS, Text);
    METHOD(Init, Bool, Variant, Int32, Session);
    METHOD(WriteToDatabase, Bool);
    METHOD(DeleteFromDatabase, Bool);
    NOT_PUBLIC(PropertiesInit);
    NOT_PUBLIC(InitPropertiesByRecordset);
    return model;
}

ClassModel TargetGroups() {
    CREATABLE(colSemZielgruppen);
    METHOD(Init, Bool, Int32, Session);
    GET(Item, Ref<clsSemZielgruppe>, Variant);
    GET(Count, Int32);
    ENUMERATOR(clsSemZielgruppe);
    NOT_PUBLIC(Add);
    NOT_PUBLIC(Remove);
    return model;
}

ClassModel TargetGroup() {
    CREATABLE(clsSemZielgruppe);
    PROPERTY(BezeichungKurz, Text);
    PROPERTY(Bezeichung, Text);
    METHOD(Init, Bool, Int32, Int32, Session);
    return model;
}

ClassModel GoalAndContent() {
    CREATABLE(clsSemZielInhalt);
    GET(ZielInhaltID, Int32);
    GET(Ziel, Text);
    GET(Inhalt, Text);
    METHOD(Init, Bool, Int32, Session);
    return model;
}

}  // namespace

test_support::ClassModels test_support::CatalogueModel() {
    return {SeminarList(),     Seminar(),      FocusAreasOfSeminar(), FocusAreaOfSeminar(), FocusAreasOfDate(),
            FocusAreaOfDate(), TargetGroups(), TargetGroup(),         GoalAndContent()};
}
