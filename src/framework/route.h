// Tables that say which member function handles which message.
#pragma once

#include <windows.h>

#include <optional>
#include <type_traits>

namespace ferry::framework {

class CWnd;

/// What a handler answers: a result, or nothing for the default processing.
using Answer = std::optional<LRESULT>;

/// One line of a window's route table.
struct Route {
    static constexpr int kAnyId = -1;

    UINT Message = 0;
    int Id = kAnyId;  ///< Control number, for commands.
    UINT Code = 0;    ///< Notification code, for commands.
    Answer (*Invoke)(CWnd& window, WPARAM wParam, LPARAM lParam) = nullptr;
};

namespace detail {

template <class Member>
struct MemberOf;

template <class Result, class Class, class... Arguments>
struct MemberOf<Result (Class::*)(Arguments...)> {
    using Type = Class;
};

template <class Result, class Class, class... Arguments>
struct MemberOf<Result (Class::*)(Arguments...) const> {
    using Type = Class;
};

template <auto handler>
using ClassOf = typename MemberOf<decltype(handler)>::Type;

}  // namespace detail

/// Sends notification `code` of control `id`, as WM_COMMAND, to `void Class::Handler()`.
template <auto handler>
constexpr Route OnCommand(int id, UINT code) {
    return {WM_COMMAND, id, code, [](CWnd& window, WPARAM, LPARAM) -> Answer {
                (static_cast<detail::ClassOf<handler>&>(window).*handler)();
                return 0;
            }};
}

/// Sends clicks on button `id`, and its keyboard and menu equivalents, to `void Class::Handler()`.
template <auto handler>
constexpr Route OnClick(int id) {
    return OnCommand<handler>(id, BN_CLICKED);
}

/// Sends `message` to `Answer Class::Handler(WPARAM, LPARAM)`.
template <auto handler>
constexpr Route OnMessage(UINT message) {
    return {message, Route::kAnyId, 0, [](CWnd& window, WPARAM wParam, LPARAM lParam) -> Answer {
                return (static_cast<detail::ClassOf<handler>&>(window).*handler)(wParam, lParam);
            }};
}

}  // namespace ferry::framework
