// Whether paths exist, asked with as little effort as possible.
#include "launcher/known_names.h"

#include <gtest/gtest.h>

#include <set>

namespace ferry::launcher {
namespace {

/// A disk that counts how often it is asked.
class KnownNamesTest : public testing::Test {
protected:
    bool Exists(const std::wstring& path) { return names_.Exists(path); }

    /// Asks for as many missing names as it takes until `folder` is about to be listed.
    void AskUntilListed(const std::wstring& folder) {
        for (std::size_t index = 1; index < KnownNames::kEnoughToList; ++index) {
            EXPECT_FALSE(Exists(folder + L"missing " + std::to_wstring(index)));
        }
    }

    std::set<std::wstring> paths_;
    std::vector<std::wstring> listed_;
    std::vector<std::wstring> asked_;

private:
    std::vector<std::wstring> NamesIn(const std::wstring& folder) {
        listed_.push_back(folder);
        std::vector<std::wstring> names;
        for (const std::wstring& path : paths_) {
            if (path.starts_with(folder))
                names.push_back(path.substr(folder.size()));
        }
        return names;
    }

    KnownNames names_{[this](const std::wstring& folder) { return NamesIn(folder); },
                      [this](const std::wstring& path) {
                          asked_.push_back(path);
                          return paths_.contains(path);
                      }};
};

TEST_F(KnownNamesTest, AsksForEachOfAFewPaths) {
    paths_ = {L"C:\\a\\1", L"C:\\a\\2"};
    EXPECT_TRUE(Exists(L"C:\\a\\1"));
    EXPECT_TRUE(Exists(L"C:\\a\\2"));
    EXPECT_FALSE(Exists(L"C:\\a\\3"));
    EXPECT_EQ(asked_.size(), 3U);
    EXPECT_TRUE(listed_.empty());
}

TEST_F(KnownNamesTest, ListsAFolderOnceWhenManyPathsLieInIt) {
    paths_ = {L"C:\\a\\1", L"C:\\a\\2"};
    AskUntilListed(L"C:\\a\\");
    EXPECT_TRUE(listed_.empty());
    asked_.clear();
    EXPECT_TRUE(Exists(L"C:\\a\\1"));
    EXPECT_TRUE(Exists(L"C:\\a\\2"));
    EXPECT_EQ(listed_, std::vector<std::wstring>{L"C:\\a\\"});
    EXPECT_TRUE(asked_.empty());
}

TEST_F(KnownNamesTest, AsksForANameThatTheListingDoesNotHave) {
    paths_ = {L"C:\\a\\1"};
    AskUntilListed(L"C:\\a\\");
    EXPECT_TRUE(Exists(L"C:\\a\\1"));
    paths_.insert(L"C:\\a\\SHORT~1");
    EXPECT_TRUE(Exists(L"C:\\a\\SHORT~1"));
    EXPECT_FALSE(Exists(L"C:\\a\\missing"));
    EXPECT_EQ(listed_.size(), 1U);
}

TEST_F(KnownNamesTest, ForgetsTheNamesOfOneFolderInTheNext) {
    paths_ = {L"C:\\a\\1"};
    AskUntilListed(L"C:\\a\\");
    EXPECT_TRUE(Exists(L"C:\\a\\1"));
    EXPECT_FALSE(Exists(L"C:\\b\\1"));
    EXPECT_TRUE(Exists(L"C:\\a\\1"));
    EXPECT_EQ(listed_.size(), 1U);
}

}  // namespace
}  // namespace ferry::launcher
