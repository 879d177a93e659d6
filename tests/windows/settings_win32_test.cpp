// The registry store against the real registry, below a key of its own.
#include <windows.h>
#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "base/handles_win32.h"
#include "settings/registry_store_win32.h"
#include "windows/resource_counts_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::settings {
namespace {

struct RawValue {
    DWORD Type = REG_NONE;
    std::vector<BYTE> Bytes;
};

base::RegistryKey Open(const std::wstring& path) {
    base::RegistryKey key;
    RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_ALL_ACCESS, key.Put());
    return key;
}

std::optional<RawValue> ReadRaw(const std::wstring& path, const wchar_t* name) {
    const base::RegistryKey key = Open(path);
    RawValue value;
    DWORD size = 0;
    if (!key || RegQueryValueExW(key.Get(), name, nullptr, &value.Type, nullptr, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    value.Bytes.resize(size);
    RegQueryValueExW(key.Get(), name, nullptr, &value.Type, value.Bytes.data(), &size);
    return value;
}

void WriteRaw(const std::wstring& path, const wchar_t* name, DWORD type, const void* data, std::size_t size) {
    base::RegistryKey key;
    RegCreateKeyW(HKEY_CURRENT_USER, path.c_str(), key.Put());
    ASSERT_EQ(
        RegSetValueExW(key.Get(), name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size)),
        ERROR_SUCCESS);
}

/// Takes a value of the host's key away and puts it back at the end.
class HostValueKeeper {
public:
    explicit HostValueKeeper(const wchar_t* name) : name_(name), saved_(ReadRaw(kHostKey, name)) { Remove(); }
    ~HostValueKeeper() {
        Remove();
        if (saved_) {
            WriteRaw(kHostKey, name_, saved_->Type, saved_->Bytes.data(), saved_->Bytes.size());
        }
    }

    HostValueKeeper(const HostValueKeeper&) = delete;
    HostValueKeeper& operator=(const HostValueKeeper&) = delete;

private:
    void Remove() const {
        if (const base::RegistryKey key = Open(kHostKey)) {
            RegDeleteValueW(key.Get(), name_);
        }
    }

    const wchar_t* name_;
    std::optional<RawValue> saved_;
};

class RegistryStoreTest : public testing::Test {
protected:
    ~RegistryStoreTest() override {
        RegDeleteTreeW(HKEY_CURRENT_USER, root_.c_str());
        RegDeleteKeyW(HKEY_CURRENT_USER, root_.c_str());
    }

    std::wstring root_ = L"Software\\" + test::UniqueName(L"FerryTests");
    std::wstring key_ = root_ + L"\\Store";
    RegistryStore store_{key_};
};

TEST_F(RegistryStoreTest, FirstReadCreatesTheKeyAndGivesTheDefault) {
    ASSERT_FALSE(Open(key_));
    EXPECT_EQ(store_.ReadText(L"DateTime", L"%Y-%m-%d"), L"%Y-%m-%d");
    EXPECT_TRUE(Open(key_));
    EXPECT_FALSE(ReadRaw(key_, L"DateTime"));
}

TEST_F(RegistryStoreTest, NumberReadCreatesTheKeyToo) {
    EXPECT_EQ(store_.ReadNumber(L"FileNameSep", 1), 1U);
    EXPECT_TRUE(Open(key_));
}

TEST_F(RegistryStoreTest, ReadsBackWhatItWrote) {
    EXPECT_TRUE(store_.WriteText(L"Ferry000", L"C:\\出力先"));
    EXPECT_TRUE(store_.WriteNumber(L"Mode", 0xFFFFFFFF));
    EXPECT_EQ(store_.ReadText(L"Ferry000", L"other"), L"C:\\出力先");
    EXPECT_EQ(store_.ReadNumber(L"Mode", 5), 0xFFFFFFFF);
}

TEST_F(RegistryStoreTest, WritesTextsWithoutTheirTerminator) {
    const std::wstring_view longer = L"abcdef";
    ASSERT_TRUE(store_.WriteText(L"Time", longer.substr(0, 3)));
    const auto raw = ReadRaw(key_, L"Time");
    ASSERT_TRUE(raw);
    EXPECT_EQ(raw->Type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(raw->Bytes, (std::vector<BYTE>{'a', 0, 'b', 0, 'c', 0}));
    EXPECT_EQ(store_.ReadText(L"Time", L"a longer default"), L"abc");
}

TEST_F(RegistryStoreTest, WritesNumbersAsFourBytes) {
    ASSERT_TRUE(store_.WriteNumber(L"1", 0x01020304));
    const auto raw = ReadRaw(key_, L"1");
    ASSERT_TRUE(raw);
    EXPECT_EQ(raw->Type, static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(raw->Bytes, (std::vector<BYTE>{4, 3, 2, 1}));
}

TEST_F(RegistryStoreTest, NumberStoredAsTextReadsAsItsBytes) {
    WriteRaw(key_, L"Name", REG_SZ, L"7", 4);
    EXPECT_EQ(store_.ReadNumber(L"Name", 3), 0x37U);
}

TEST_F(RegistryStoreTest, ValueOfMoreThanFourBytesIsNoNumber) {
    WriteRaw(key_, L"Name", REG_SZ, L"seven", 12);
    EXPECT_EQ(store_.ReadNumber(L"Name", 3), 3U);
}

TEST_F(RegistryStoreTest, TextTypeIsNotChecked) {
    WriteRaw(key_, L"Week", REG_BINARY, L"%A", 6);
    EXPECT_EQ(store_.ReadText(L"Week", L"%a"), L"%A");
}

TEST_F(RegistryStoreTest, ReadsTextsUpToTheLimitOnly) {
    const std::wstring longest(kMaxTextBytes / sizeof(wchar_t) + 1, L'x');
    WriteRaw(key_, L"Fits", REG_BINARY, longest.data(), kMaxTextBytes);
    WriteRaw(key_, L"TooLong", REG_BINARY, longest.data(), kMaxTextBytes + sizeof(wchar_t));
    EXPECT_EQ(store_.ReadText(L"Fits", L"default"), longest.substr(1));
    EXPECT_EQ(store_.ReadText(L"TooLong", L"default"), L"default");
}

TEST_F(RegistryStoreTest, ValueWithoutAnyBytesLeavesTheDefault) {
    ASSERT_TRUE(store_.WriteText(L"Empty", L""));
    EXPECT_EQ(store_.ReadText(L"Empty", L""), L"");
    EXPECT_EQ(store_.ReadText(L"Empty", L"default"), L"default");
}

TEST_F(RegistryStoreTest, WritesToAnyKey) {
    const std::wstring other = root_ + L"\\Deep\\Key";
    EXPECT_TRUE(store_.WriteTextToKey(other, L"text", L"value"));
    EXPECT_TRUE(store_.WriteNumberToKey(other, L"number", 9));
    EXPECT_EQ(RegistryStore(other).ReadText(L"text", L""), L"value");
    EXPECT_EQ(RegistryStore(other).ReadNumber(L"number", 0), 9U);
}

TEST_F(RegistryStoreTest, KeyThatCannotBeOpenedGivesDefaultsAndFailedWrites) {
    // One component of a key path has at most 255 units.
    RegistryStore broken(root_ + L"\\" + std::wstring(300, L'k'));
    EXPECT_EQ(broken.ReadText(L"Time", L"default"), L"default");
    EXPECT_EQ(broken.ReadNumber(L"Mode", 4), 4U);
    EXPECT_FALSE(broken.WriteText(L"Time", L"text"));
    EXPECT_FALSE(broken.WriteNumber(L"Mode", 1));
}

TEST_F(RegistryStoreTest, KeepsNoKeyOpen) {
    constexpr std::size_t kRounds = 50;
    store_.WriteNumber(L"Mode", 1);
    const std::size_t before = test::CountHandles();
    for (std::size_t round = 0; round < kRounds; ++round) {
        store_.ReadText(L"Time", L"");
        store_.ReadNumber(L"Mode", 0);
        store_.WriteText(L"Time", L"text");
        store_.WriteNumber(L"Mode", 1);
    }
    // Whichever of the four kept its key, there would be one for each round.
    EXPECT_LT(test::CountHandles(), before + kRounds / 2);
}

/// How a key was asked for.
struct AskedKey {
    HKEY Root = nullptr;
    std::wstring Path;
    std::wstring Class;
    DWORD Options = 0;
    REGSAM Access = 0;
    const SECURITY_ATTRIBUTES* Security = nullptr;

    bool operator==(const AskedKey&) const = default;
};

TEST_F(RegistryStoreTest, EveryFunctionAsksForFullAccessAndKeepsWhatItMakes) {
    constexpr REGSAM kKeyAllAccess = 0xF003F;
    std::vector<AskedKey> asked;
    const test::WatchedImport<&RegCreateKeyExW> create(
        "RegCreateKeyExW",
        [&](HKEY root, LPCWSTR path, DWORD reserved, LPCWSTR className, DWORD options, REGSAM access,
            const LPSECURITY_ATTRIBUTES security, PHKEY, LPDWORD) -> LSTATUS {
            EXPECT_EQ(reserved, 0U);
            asked.push_back({root, path, className, options, access, security});
            return ERROR_ACCESS_DENIED;
        });
    store_.ReadText(L"a", L"");
    store_.ReadNumber(L"a", 0);
    store_.WriteText(L"a", L"");
    store_.WriteNumber(L"a", 0);
    store_.ReadHostText(L"a", L"");
    store_.ReadHostNumber(L"a");
    store_.WriteTextToKey(root_, L"a", L"");
    store_.WriteNumberToKey(root_, L"a", 0);
    const auto key = [&](const std::wstring& path) {
        return AskedKey{HKEY_CURRENT_USER, path, L"", REG_OPTION_NON_VOLATILE, kKeyAllAccess, nullptr};
    };
    EXPECT_EQ(asked, (std::vector{key(key_), key(key_), key(key_), key(key_), key(kHostKey), key(kHostKey),
                                  key(root_), key(root_)}));
}

TEST_F(RegistryStoreTest, AKeyThatMayOnlyBeReadGivesTheDefaults) {
    ASSERT_TRUE(store_.WriteText(L"Time", L"stored"));
    ASSERT_TRUE(store_.WriteNumber(L"Mode", 1));
    const test::WatchedImport<&RegCreateKeyExW> create(
        "RegCreateKeyExW",
        [&](HKEY root, LPCWSTR path, DWORD reserved, LPWSTR className, DWORD options, REGSAM access,
            const LPSECURITY_ATTRIBUTES security, PHKEY key, LPDWORD disposition) -> LSTATUS {
            return (access & KEY_SET_VALUE) != 0 ? ERROR_ACCESS_DENIED
                                                 : create.CallReal(root, path, reserved, className, options,
                                                                   access, security, key, disposition);
        });
    EXPECT_EQ(store_.ReadText(L"Time", L"default"), L"default");
    EXPECT_EQ(store_.ReadNumber(L"Mode", 4), 4U);
    EXPECT_FALSE(store_.WriteNumber(L"Mode", 2));
}

/// Lets an empty key of the test stand for HKEY_CURRENT_USER.
class EmptyUser {
public:
    explicit EmptyUser(const std::wstring& path) {
        RegCreateKeyW(HKEY_CURRENT_USER, path.c_str(), key_.Put());
        EXPECT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, key_.Get()), ERROR_SUCCESS);
    }
    ~EmptyUser() { RegOverridePredefKey(HKEY_CURRENT_USER, nullptr); }

    EmptyUser(const EmptyUser&) = delete;
    EmptyUser& operator=(const EmptyUser&) = delete;

private:
    base::RegistryKey key_;
};

TEST_F(RegistryStoreTest, AReadCreatesTheHostsKeyToo) {
    const EmptyUser user(root_);
    ASSERT_FALSE(Open(kHostKey));
    EXPECT_EQ(store_.ReadHostText(L"NLS", L".ja-JP"), L".ja-JP");
    EXPECT_TRUE(Open(kHostKey));
}

TEST_F(RegistryStoreTest, AReadOfAHostNumberCreatesTheHostsKeyToo) {
    const EmptyUser user(root_);
    EXPECT_EQ(store_.ReadHostNumber(L"LangOut"), 0U);
    EXPECT_TRUE(Open(kHostKey));
}

TEST_F(RegistryStoreTest, MissingHostNumberIsZero) {
    const HostValueKeeper keeper(L"LangOut");
    EXPECT_EQ(store_.ReadHostNumber(L"LangOut"), 0U);
}

TEST_F(RegistryStoreTest, ReadsTheHostsKey) {
    const HostValueKeeper numberKeeper(L"LangOut");
    const HostValueKeeper textKeeper(L"NLS");
    EXPECT_EQ(store_.ReadHostText(L"NLS", L".ja-JP"), L".ja-JP");
    ASSERT_TRUE(store_.WriteNumberToKey(kHostKey, L"LangOut", 1));
    ASSERT_TRUE(store_.WriteTextToKey(kHostKey, L"NLS", L".en-US"));
    EXPECT_EQ(store_.ReadHostNumber(L"LangOut"), 1U);
    EXPECT_EQ(store_.ReadHostText(L"NLS", L".ja-JP"), L".en-US");
}

}  // namespace
}  // namespace ferry::settings
