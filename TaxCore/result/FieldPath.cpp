#include "TaxCore/result/FieldPath.h"

namespace taxcore {

std::string FieldPath::toString() const {
    std::string path(record_);
    if (person_ > 0) {
        path += std::to_string(person_);
    }
    if (!inner_.empty()) {
        path += ".";
        path += inner_;
    }
    if (index_ >= 0) {
        path += "[" + std::to_string(index_) + "]";
    }
    if (!field_.empty()) {
        path += ".";
        path += field_;
    }
    return path;
}

} // namespace taxcore
