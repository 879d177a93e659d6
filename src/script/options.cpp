#include "script/options.h"

#include "base/text.h"

namespace ferry::script {

Options::Options() {
    for (std::size_t index = 0; index < kOptionCount; ++index) {
        values_[index] = OptionWordOf(static_cast<OptionId>(index)).Default;
    }
}

int Options::Number(OptionId id) const noexcept {
    return base::ToInt((*this)[id]);
}

}  // namespace ferry::script
