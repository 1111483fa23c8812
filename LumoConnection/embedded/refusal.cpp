#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {

bool StopsText(int number) {
    switch (number) {
        case Refused::kDuplicateKey:
        case Refused::kDuplicateInIndex:
        case Refused::kNull:
        case Refused::kConflict:
        case Refused::kTruncated:
        case Refused::kOverflow:
        case Refused::kSmallOverflow:
        case Refused::kFloatOverflow:
        case Refused::kDivisionByZero:
        case Refused::kManyRows:
        case Refused::kMomentRange:
        case Refused::kMomentOverflow:
        case Refused::kCannotDrop:
        case Refused::kReferenced:
        case Refused::kCommitWithout:
        case Refused::kRollbackWithout:
            return false;
        default:
            return true;
    }
}

bool EndsTransaction(int number) {
    switch (number) {
        case Refused::kNoNumber:
        case Refused::kNoMoment:
        case Refused::kNoMoney:
        case Refused::kNoFloat:
        case Refused::kTextOverflowsSmall:
        case Refused::kTextOverflowsInt:
            return true;
        default:
            return false;
    }
}

}  // namespace LumoConnection::Embedded
