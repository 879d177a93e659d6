// The interface itself: the log, the sinks, the smaller calls, and what is not supplied.
#include <shlobj.h>

#include <atomic>

#include "service_fixture.h"

namespace ferry::fileop {
namespace {

using testing::ElementsAre;

class CallTest : public ServiceTest {};

// Counts what it hears; may veto a copy.
class Listener final : public IFileOperationProgressSink {
public:
    std::vector<std::string> Heard;
    HRESULT Veto = S_OK;

    ~Listener() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override { return --references_; }
    ULONG References() const { return references_; }

    HRESULT STDMETHODCALLTYPE StartOperations() override { return Hear("start"); }
    HRESULT STDMETHODCALLTYPE FinishOperations(HRESULT result) override {
        return Hear(SUCCEEDED(result) ? "finish" : "finish with failure");
    }
    HRESULT STDMETHODCALLTYPE PreRenameItem(DWORD, IShellItem*, LPCWSTR) override {
        return Hear("pre rename");
    }
    HRESULT STDMETHODCALLTYPE PostRenameItem(DWORD, IShellItem*, LPCWSTR, HRESULT, IShellItem*) override {
        return Hear("post rename");
    }
    HRESULT STDMETHODCALLTYPE PreMoveItem(DWORD, IShellItem*, IShellItem*, LPCWSTR) override {
        return Hear("pre move");
    }
    HRESULT STDMETHODCALLTYPE PostMoveItem(DWORD, IShellItem*, IShellItem*, LPCWSTR, HRESULT,
                                           IShellItem*) override {
        return Hear("post move");
    }
    HRESULT STDMETHODCALLTYPE PreCopyItem(DWORD, IShellItem*, IShellItem*, LPCWSTR) override {
        Hear("pre copy");
        return Veto;
    }
    HRESULT STDMETHODCALLTYPE PostCopyItem(DWORD, IShellItem*, IShellItem*, LPCWSTR, HRESULT,
                                           IShellItem*) override {
        return Hear("post copy");
    }
    HRESULT STDMETHODCALLTYPE PreDeleteItem(DWORD, IShellItem*) override { return Hear("pre delete"); }
    HRESULT STDMETHODCALLTYPE PostDeleteItem(DWORD, IShellItem*, HRESULT, IShellItem*) override {
        return Hear("post delete");
    }
    HRESULT STDMETHODCALLTYPE PreNewItem(DWORD, IShellItem*, LPCWSTR) override { return Hear("pre new"); }
    HRESULT STDMETHODCALLTYPE PostNewItem(DWORD, IShellItem*, LPCWSTR, LPCWSTR, DWORD, HRESULT,
                                          IShellItem*) override {
        return Hear("post new");
    }
    HRESULT STDMETHODCALLTYPE UpdateProgress(UINT, UINT) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ResetTimer() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE PauseTimer() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ResumeTimer() override { return S_OK; }

private:
    HRESULT Hear(const char* what) {
        Heard.emplace_back(what);
        return S_OK;
    }

    std::atomic<ULONG> references_{1};
};

TEST_F(CallTest, LogsEachCallAndItem) {
    const auto file = folder_.MakeFile(L"from\\資料.txt", "content");
    EXPECT_EQ(Perform({{true, file, target_, L"b.txt"}}, 0x2A14, GetDesktopWindow()).Performed, S_OK);
    const auto log = Log();
    ASSERT_EQ(log.size(), 6U);
    EXPECT_EQ(log[0], L"MoveItem\t" + file + L"\t" + target_ + L"\tb.txt");
    EXPECT_TRUE(log[1].starts_with(L"SetOwnerWindow\t0x"));
    EXPECT_EQ(log[2], L"SetOperationFlags\t0x2a14");
    EXPECT_EQ(log[3], L"Item\t1\tmove\t" + file + L"\t" + target_ + L"\\b.txt\t0x00000000");
    EXPECT_EQ(log[4], L"PerformOperations\t0x00000000");
    EXPECT_EQ(log[5], L"GetAnyOperationsAborted\t0");
}

TEST_F(CallTest, LogsThePluralCalls) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "content");
    EXPECT_EQ(Copy(file, target_).Performed, S_OK);
    EXPECT_EQ(Log()[0], L"CopyItems\t" + file + L"\t" + target_);
}

TEST_F(CallTest, TakesAnArrayOfItemsAndADataObject) {
    PIDLIST_ABSOLUTE ids[2] = {};
    for (int index = 0; index < 2; ++index) {
        const auto file =
            folder_.MakeFile(L"from\\" + std::to_wstring(index), "content " + std::to_string(index));
        ids[index] = ILCreateFromPathW(file.c_str());
        ASSERT_NE(ids[index], nullptr);
    }
    ComRef<IShellItemArray> array;
    ASSERT_EQ(SHCreateShellItemArrayFromIDLists(2, const_cast<LPCITEMIDLIST*>(ids), array.Put()), S_OK);
    const ComRef<IFileOperation> operation = NewOperation();
    operation->SetOperationFlags(kQuiet);
    EXPECT_EQ(operation->CopyItems(array.Get(), ItemOf(target_).Get()), S_OK);
    EXPECT_EQ(operation->PerformOperations(), S_OK);
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"0", L"1"));
    EXPECT_EQ(ContentOf(target_ + L"\\0"), "content 0");
    EXPECT_EQ(ContentOf(target_ + L"\\1"), "content 1");
    for (PIDLIST_ABSOLUTE id : ids) {
        ILFree(id);
    }
}

TEST_F(CallTest, RenamesAndMakesNewItems) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "content");
    const ComRef<IFileOperation> operation = NewOperation();
    const ComRef<IShellItem> folder = ItemOf(source_);
    operation->SetOperationFlags(kQuiet);
    EXPECT_EQ(operation->RenameItem(ItemOf(file).Get(), L"b.txt", nullptr), S_OK);
    EXPECT_EQ(operation->NewItem(folder.Get(), FILE_ATTRIBUTE_DIRECTORY, L"d", nullptr, nullptr), S_OK);
    EXPECT_EQ(operation->NewItem(folder.Get(), FILE_ATTRIBUTE_NORMAL, L"n.txt", nullptr, nullptr), S_OK);
    EXPECT_EQ(operation->PerformOperations(), S_OK);
    EXPECT_THAT(TreeOf(source_), ElementsAre(L"b.txt", L"d\\", L"n.txt"));
}

TEST_F(CallTest, TellsTheSinks) {
    Listener general;
    Listener ofItem;
    const auto file = folder_.MakeFile(L"from\\a.txt", "content");
    {
        const ComRef<IFileOperation> operation = NewOperation();
        DWORD cookie = 0;
        ASSERT_EQ(operation->Advise(&general, &cookie), S_OK);
        operation->SetOperationFlags(kQuiet);
        operation->CopyItem(ItemOf(file).Get(), ItemOf(target_).Get(), nullptr, &ofItem);
        EXPECT_EQ(operation->PerformOperations(), S_OK);
        EXPECT_EQ(operation->Unadvise(cookie), S_OK);
        EXPECT_EQ(operation->Unadvise(cookie), E_INVALIDARG);
    }
    EXPECT_THAT(general.Heard, ElementsAre("start", "pre copy", "post copy", "finish"));
    EXPECT_THAT(ofItem.Heard, ElementsAre("pre copy", "post copy"));
    EXPECT_EQ(general.References(), 1U);
    EXPECT_EQ(ofItem.References(), 1U);
}

TEST_F(CallTest, ASinkMayVetoAnItem) {
    Listener listener;
    listener.Veto = E_ACCESSDENIED;
    const auto file = folder_.MakeFile(L"from\\a.txt", "content");
    const ComRef<IFileOperation> operation = NewOperation();
    operation->SetOperationFlags(kQuiet);
    operation->CopyItem(ItemOf(file).Get(), ItemOf(target_).Get(), nullptr, &listener);
    EXPECT_EQ(operation->PerformOperations(), E_ACCESSDENIED);
    EXPECT_THAT(TreeOf(target_), testing::IsEmpty());
}

TEST_F(CallTest, RefusesMissingArgumentsAndAnEmptyQueue) {
    const ComRef<IFileOperation> operation = NewOperation();
    EXPECT_EQ(operation->CopyItems(nullptr, ItemOf(target_).Get()), E_INVALIDARG);
    EXPECT_EQ(operation->CopyItem(ItemOf(source_).Get(), nullptr, nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(operation->MoveItem(nullptr, ItemOf(target_).Get(), nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(operation->GetAnyOperationsAborted(nullptr), E_POINTER);
    EXPECT_EQ(operation->PerformOperations(), E_UNEXPECTED);
}

TEST_F(CallTest, SaysWhatItDoesNotSupply) {
    const ComRef<IFileOperation> operation = NewOperation();
    EXPECT_EQ(operation->DeleteItem(nullptr, nullptr), E_NOTIMPL);
    EXPECT_EQ(operation->DeleteItems(nullptr), E_NOTIMPL);
    EXPECT_EQ(operation->SetProgressDialog(nullptr), E_NOTIMPL);
    EXPECT_EQ(operation->SetProperties(nullptr), E_NOTIMPL);
    EXPECT_EQ(operation->ApplyPropertiesToItem(nullptr), E_NOTIMPL);
    EXPECT_EQ(operation->ApplyPropertiesToItems(nullptr), E_NOTIMPL);
}

TEST_F(CallTest, UnregisteringPutsTheSystemsClassBack) {
    const HMODULE library = GetModuleHandleW(L"ferry_fileop.dll");
    const auto call = [&](const char* name) {
        using Function = HRESULT(STDAPICALLTYPE*)();
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)))();
    };
    const auto server = [] {
        wchar_t path[1024] = {};
        DWORD size = sizeof(path);
        RegGetValueW(HKEY_LOCAL_MACHINE,
                     L"Software\\Classes\\CLSID\\{3AD05575-8857-4850-9277-11B85BDB8E09}\\InprocServer32",
                     nullptr, RRF_RT_REG_SZ, nullptr, path, &size);
        return std::wstring(path);
    };
    EXPECT_TRUE(server().ends_with(L"ferry_fileop.dll"));
    EXPECT_EQ(call("DllUnregisterServer"), S_OK);
    EXPECT_TRUE(server().ends_with(L"shell32.dll"));
    EXPECT_EQ(call("DllRegisterServer"), S_OK);
    EXPECT_TRUE(server().ends_with(L"ferry_fileop.dll"));
}

}  // namespace
}  // namespace ferry::fileop
