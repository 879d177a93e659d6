#include "script/labels.h"

namespace ferry::script {

const LabelPlace* Labels::Find(std::wstring_view name) const {
    const auto found = places_.find(name);
    return found != places_.end() ? &found->second : nullptr;
}

}  // namespace ferry::script
