// The messages of the host, by their tags.
#include "hostlink/host_message.h"

#include <gtest/gtest.h>

namespace ferry::hostlink {
namespace {

TEST(HostMessage, TwoHundredFiftyFiveIsABlock) {
    EXPECT_EQ(HostMessageOf(255), HostMessage::Block);
}

TEST(HostMessage, TheThreeCodesOfScriptsBringADestination) {
    for (const std::uint64_t tag : {100u, 200u, 300u})
        EXPECT_EQ(HostMessageOf(tag), HostMessage::Destination) << tag;
}

TEST(HostMessage, AnyOtherTagIsNobodys) {
    for (const std::uint64_t tag : {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{99}, std::uint64_t{254},
                                    std::uint64_t{256}, std::uint64_t{0x1000000FF}, ~std::uint64_t{0}})
        EXPECT_EQ(HostMessageOf(tag), HostMessage::None) << tag;
}

}  // namespace
}  // namespace ferry::hostlink
