// Data exchange between a dialog's controls and the members of a plain struct, by tables.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <tuple>

namespace ferry::framework {

/// Which way the data goes.
enum class Exchange { ToControls, FromControls };

/// Says that a field takes no more characters than this number.
using LimitText = std::function<std::wstring(int)>;

/// For as long as it lives, a text that is too long is told of in the words of `text`; otherwise it is told
/// of in English. One at a time.
class LimitTextInForce {
public:
    explicit LimitTextInForce(LimitText text);
    ~LimitTextInForce();

    LimitTextInForce(const LimitTextInForce&) = delete;
    LimitTextInForce& operator=(const LimitTextInForce&) = delete;
};

/// Points to a member of a form.
template <class Form, class Type>
using MemberOf = Type Form::*;

/// An edit field, or a combo box with one; at most `MaxLength` units.
template <class Form>
struct TextField {
    int Id;
    MemberOf<Form, std::wstring> Member;
    int MaxLength;
};

/// A check box; 1 when checked.
template <class Form>
struct CheckField {
    int Id;
    MemberOf<Form, std::uint32_t> Member;
};

/// A group of radio buttons, in the order of their values; 0 for a value without a button. A number outside
/// the group checks none of them, and while none is checked the member keeps its number.
template <class Form>
struct RadioField {
    std::span<const int> Ids;
    MemberOf<Form, std::uint32_t> Member;
};

/// The selected index of a drop-down list. A number outside the list selects nothing, and while
/// nothing is selected the member keeps its number.
template <class Form>
struct IndexField {
    int Id;
    MemberOf<Form, std::uint32_t> Member;
};

namespace detail {

bool ExchangeText(HWND dialog, int id, std::wstring& value, int maxLength, Exchange way);
void ExchangeCheck(HWND dialog, int id, std::uint32_t& value, Exchange way);
void ExchangeRadio(HWND dialog, std::span<const int> ids, std::uint32_t& value, Exchange way);
void ExchangeIndex(HWND dialog, int id, std::uint32_t& value, Exchange way);

template <class Form, class Base>
bool ExchangeOne(HWND dialog, Form& form, const TextField<Base>& field, Exchange way) {
    return ExchangeText(dialog, field.Id, form.*field.Member, field.MaxLength, way);
}

template <class Form, class Base>
bool ExchangeOne(HWND dialog, Form& form, const CheckField<Base>& field, Exchange way) {
    ExchangeCheck(dialog, field.Id, form.*field.Member, way);
    return true;
}

template <class Form, class Base>
bool ExchangeOne(HWND dialog, Form& form, const RadioField<Base>& field, Exchange way) {
    ExchangeRadio(dialog, field.Ids, form.*field.Member, way);
    return true;
}

template <class Form, class Base>
bool ExchangeOne(HWND dialog, Form& form, const IndexField<Base>& field, Exchange way) {
    ExchangeIndex(dialog, field.Id, form.*field.Member, way);
    return true;
}

}  // namespace detail

/// Exchanges all `fields` between `form` and the controls of `dialog`.
/// From the controls: false as soon as a text is too long; the user has then been told and the
/// field has the focus.
template <class Form, class... Fields>
bool ExchangeFields(HWND dialog, Form& form, const std::tuple<Fields...>& fields, Exchange way) {
    return std::apply(
        [&](const auto&... field) { return (detail::ExchangeOne(dialog, form, field, way) && ...); }, fields);
}

}  // namespace ferry::framework
