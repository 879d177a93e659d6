// A thousand deliveries of noise: the dialog stays, and nothing on disk or in the settings changes.
#include <iostream>
#include <random>

#include "e2e/fixture.h"
#include "samplehost/host_block_writer.h"

namespace ferry::e2e {
namespace {

constexpr unsigned kSeed = 20240229;
constexpr int kDeliveries = 1000;
/// More than any path has. With much more text a field is busy for longer than a test waits.
constexpr std::size_t kHugeBytes = std::size_t{1} << 20;

/// Makes the noise; the same seed makes the same noise on every machine.
class Noise {
public:
    explicit Noise(unsigned seed) : random_(seed) {}

    std::uint32_t Below(std::uint32_t limit) { return random_() % limit; }

    std::uint64_t Tag() {
        constexpr std::uint64_t kTags[] = {255, 255, 255, 100, 200, 300, 0, 1, 254, 256, 0xFFFFFFFFFFFFFFFF};
        return kTags[Below(std::size(kTags))];
    }

    std::vector<std::byte> Payload() {
        switch (Below(6)) {
            case 0:
                return {};
            case 1:
                return RandomBytes(Below(64));
            case 2:
                return RandomBytes(2 * Below(2048) + 1);
            case 3:
                return LyingBlock();
            case 4:
                return samplehost::BytesOfUnits(std::wstring(1 + Below(3000), L'C'));
            default:
                return samplehost::BytesOfUnits(std::wstring(1 + Below(500), L'\t'));
        }
    }

private:
    /// Any low byte with the high byte of Latin, kana, ideographs or fullwidth forms: what arrives is drawn,
    /// and Wine's text shaping reads outside its tables for scripts with ligatures and stacked marks. The
    /// parsers themselves see every byte in their fuzz targets.
    std::vector<std::byte> RandomBytes(std::size_t size) {
        constexpr std::uint8_t kHighBytes[] = {0x00, 0x00, 0x30, 0x4E, 0x9F, 0xFF};
        std::vector<std::byte> bytes(size);
        for (std::size_t at = 0; at < size; ++at) {
            bytes[at] =
                static_cast<std::byte>(at % 2 == 0 ? Below(256) : kHighBytes[Below(std::size(kHighBytes))]);
        }
        return bytes;
    }

    std::vector<std::byte> LyingBlock() {
        constexpr const wchar_t* kCounts[] = {L"-1", L"2147483647", L"0", L"7", L"x", L"-2147483648"};
        samplehost::BlockFields fields;
        fields.AnnouncedItems = kCounts[Below(std::size(kCounts))];
        fields.AnnouncedTabs = kCounts[Below(std::size(kCounts))];
        fields.Items = {L"", L"\\", L"C:", std::wstring(Below(400), L'長')};
        fields.Tabs = {L"", L"\\\\", L"?:*"};
        fields.EndsWithNul = Below(2) == 0;
        auto bytes = samplehost::BytesOfUnits(samplehost::BlockUnits(fields));
        bytes.resize(bytes.size() - Below(5));
        return bytes;
    }

    std::mt19937 random_;
};

class HostileMessages : public FerryTest {};

TEST_F(HostileMessages, AThousandNoisyDeliveriesChangeNothingAndKillNobody) {
    std::cout << "seed " << kSeed << '\n';
    const std::wstring source = Tree().MakeSample(L"元");
    const std::uint64_t before = HashOf(ReadTree(source));
    ASSERT_TRUE(Open(Plan({source}, {Tree().MakeFolder(L"先")})));
    const StoredValues settings = ReadValues(kProgramKey);
    Noise noise(kSeed);
    for (int index = 0; index < kDeliveries; ++index) {
        SCOPED_TRACE(index);
        const std::uint64_t tag = noise.Tag();
        ASSERT_TRUE(Send(tag, noise.Payload())) << "tag " << tag;
    }
    EXPECT_EQ(ReadValues(kProgramKey), settings);
    EXPECT_EQ(HashOf(ReadTree(source)), before);
    EXPECT_TRUE(ReadTree(Tree().Path(L"先")).empty());
    EXPECT_EQ(FindMessageBox(Run().FerryId()).Window, nullptr);
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_F(HostileMessages, HugeDeliveriesAreSurvived) {
    ASSERT_TRUE(Open(Plan({L"C:\\Work\\a.txt"})));
    const std::vector<std::byte> huge(kHugeBytes, std::byte{'A'});
    for (const std::uint64_t tag : {7U, 100U, 200U, 300U, 255U}) {
        SCOPED_TRACE(tag);
        ASSERT_TRUE(Send(tag, huge));
    }
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_F(HostileMessages, ADropOfNothingIsSurvived) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(Drop({}));
    // A system that carries no empty handle to another process refuses this, which is as well.
    PostMessageW(Dialog().Window(), WM_DROPFILES, 0, 0);
    EXPECT_TRUE(StillHolds([&] { return Run().IsRunning(); }));
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

}  // namespace
}  // namespace ferry::e2e
