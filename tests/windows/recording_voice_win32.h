// A voice of the speech service that writes down what it is told and says nothing.
#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <sapi.h>

#include <string>
#include <vector>

#ifdef __GNUC__
#pragma GCC diagnostic push
// COM classes are destroyed by whoever made them, never through an interface.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

namespace ferry::test {

class RecordingVoice final : public ISpVoice {
public:
    std::vector<std::wstring> Calls;
    ULONG References = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++References; }
    ULONG STDMETHODCALLTYPE Release() override { return --References; }

    HRESULT STDMETHODCALLTYPE Speak(LPCWSTR text, DWORD flags, ULONG*) override {
        return Note(L"speak " + std::to_wstring(flags) + L" " + text);
    }
    HRESULT STDMETHODCALLTYPE SetRate(LONG rate) override { return Note(L"rate " + std::to_wstring(rate)); }
    HRESULT STDMETHODCALLTYPE SetVolume(USHORT volume) override {
        return Note(L"volume " + std::to_wstring(volume));
    }
    HRESULT STDMETHODCALLTYPE WaitUntilDone(ULONG limitMs) override {
        return Note(L"wait " + std::to_wstring(limitMs));
    }

    // Nobody here is told of events, looks at the voice or changes where it speaks.
    HRESULT STDMETHODCALLTYPE SetNotifySink(ISpNotifySink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetNotifyWindowMessage(HWND, UINT, WPARAM, LPARAM) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetNotifyCallbackFunction(SPNOTIFYCALLBACK*, WPARAM, LPARAM) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetNotifyCallbackInterface(ISpNotifyCallback*, WPARAM, LPARAM) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetNotifyWin32Event() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE WaitForNotifyEvent(DWORD) override { return E_NOTIMPL; }
    HANDLE STDMETHODCALLTYPE GetNotifyEventHandle() override { return nullptr; }
    HRESULT STDMETHODCALLTYPE SetInterest(ULONGLONG, ULONGLONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetEvents(ULONG, SPEVENT*, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetInfo(SPEVENTSOURCEINFO*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetOutput(IUnknown*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetOutputObjectToken(ISpObjectToken**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetOutputStream(ISpStreamFormat**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Pause() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Resume() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetVoice(ISpObjectToken*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetVoice(ISpObjectToken**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SpeakStream(IStream*, DWORD, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetStatus(SPVOICESTATUS*, LPWSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Skip(LPCWSTR, LONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetPriority(SPVPRIORITY) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPriority(SPVPRIORITY*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAlertBoundary(SPEVENTENUM) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAlertBoundary(SPEVENTENUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetRate(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetVolume(USHORT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetSyncSpeakTimeout(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSyncSpeakTimeout(ULONG*) override { return E_NOTIMPL; }
    HANDLE STDMETHODCALLTYPE SpeakCompleteEvent() override { return nullptr; }
    HRESULT STDMETHODCALLTYPE IsUISupported(LPCWSTR, void*, ULONG, BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DisplayUI(HWND, LPCWSTR, LPCWSTR, void*, ULONG) override { return E_NOTIMPL; }

private:
    HRESULT Note(std::wstring call) {
        Calls.push_back(std::move(call));
        return S_OK;
    }
};

}  // namespace ferry::test

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif
