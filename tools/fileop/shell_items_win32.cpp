#include "shell_items_win32.h"

#include <shlobj.h>

namespace ferry::fileop {
namespace {

template <class T>
ComRef<T> As(IUnknown* object) {
    ComRef<T> other;
    if (FAILED(object->QueryInterface(__uuidof(T), reinterpret_cast<void**>(other.Put())))) {
        return {};
    }
    return other;
}

HRESULT AppendArray(IShellItemArray* array, std::vector<ComRef<IShellItem>>& list) {
    DWORD count = 0;
    HRESULT result = array->GetCount(&count);
    for (DWORD index = 0; SUCCEEDED(result) && index < count; ++index) {
        ComRef<IShellItem> item;
        result = array->GetItemAt(index, item.Put());
        if (SUCCEEDED(result)) {
            list.push_back(std::move(item));
        }
    }
    return result;
}

HRESULT AppendEnumerated(IEnumShellItems* items, std::vector<ComRef<IShellItem>>& list) {
    for (;;) {
        ComRef<IShellItem> item;
        const HRESULT result = items->Next(1, item.Put(), nullptr);
        if (result != S_OK) {
            return FAILED(result) ? result : S_OK;
        }
        list.push_back(std::move(item));
    }
}

HRESULT AppendIdList(IPersistIDList* persist, std::vector<ComRef<IShellItem>>& list) {
    PIDLIST_ABSOLUTE ids = nullptr;
    HRESULT result = persist->GetIDList(&ids);
    if (FAILED(result)) {
        return result;
    }
    ComRef<IShellItem> item;
    result = SHCreateItemFromIDList(ids, IID_IShellItem, reinterpret_cast<void**>(item.Put()));
    CoTaskMemFree(ids);
    if (SUCCEEDED(result)) {
        list.push_back(std::move(item));
    }
    return result;
}

}  // namespace

HRESULT PathOf(IShellItem* item, std::wstring& path) {
    if (item == nullptr) {
        return E_INVALIDARG;
    }
    PWSTR text = nullptr;
    const HRESULT result = item->GetDisplayName(SIGDN_FILESYSPATH, &text);
    if (SUCCEEDED(result)) {
        path = text;
        CoTaskMemFree(text);
    }
    return result;
}

HRESULT ItemsOf(IUnknown* items, std::vector<ComRef<IShellItem>>& list) {
    list.clear();
    if (items == nullptr) {
        return E_INVALIDARG;
    }
    if (auto item = As<IShellItem>(items)) {
        list.push_back(std::move(item));
        return S_OK;
    }
    if (const auto array = As<IShellItemArray>(items)) {
        return AppendArray(array.Get(), list);
    }
    if (const auto enumerator = As<IEnumShellItems>(items)) {
        return AppendEnumerated(enumerator.Get(), list);
    }
    if (const auto data = As<IDataObject>(items)) {
        ComRef<IShellItemArray> array;
        const HRESULT result = SHCreateShellItemArrayFromDataObject(data.Get(), IID_IShellItemArray,
                                                                    reinterpret_cast<void**>(array.Put()));
        return FAILED(result) ? result : AppendArray(array.Get(), list);
    }
    if (const auto persist = As<IPersistIDList>(items)) {
        return AppendIdList(persist.Get(), list);
    }
    return E_NOINTERFACE;
}

}  // namespace ferry::fileop
