#include <test_support/object_model.h>

using namespace LumoSeminar;
using test_support::ClassModel;
using test_support::Optional;

namespace {

ClassModel FindingList() {
    CREATABLE(colErrorMsg);
    METHOD(Add, Ref<clsErrorMsg>, Int32, Optional<Text>, Optional<DateTime>);
    GET(Item, Ref<clsErrorMsg>, Variant);
    GET(Count, Int32);
    METHOD(Remove, void, Variant);
    ENUMERATOR(clsErrorMsg);
    return model;
}

ClassModel Finding() {
    CREATABLE(clsErrorMsg);
    PROPERTY(ErrID, Int32);
    PROPERTY(ParamDate, DateTime);
    PROPERTY(ParamName, Text);
    PROPERTY(errZusatzInfo, Text);
    return model;
}

}  // namespace

test_support::ClassModels test_support::FrameModel() { return {FindingList(), Finding()}; }
