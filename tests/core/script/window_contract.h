// What scripts rely on in the windows that they send to, and in the boxes that they show. Those of the
// desktop and those that are made up are held against the same tests.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "script/ports.h"
#include "support/contract.h"

namespace ferry::script::contract {

/// A record as it arrived.
struct ArrivedRecord {
    std::uint32_t Code = 0;
    std::size_t ByteCount = 0;
    std::wstring Text;

    bool operator==(const ArrivedRecord&) const = default;
};

/// A message as it arrived.
struct ArrivedMessage {
    std::uint32_t Number = 0;
    int First = 0;
    int Second = 0;
    bool IsPosted = false;

    bool operator==(const ArrivedMessage&) const = default;
};

/// A host's window under test, and what it got.
class HostPlace {
public:
    virtual ~HostPlace() = default;

    /// One that is there.
    virtual HostWindow& Present() = 0;

    /// One that is not there any more.
    virtual HostWindow& Absent() = 0;

    /// Where the one that is there stands.
    virtual ScreenBox Stands() = 0;

    /// What the one that is there got since it was asked last, in its order.
    virtual std::vector<ArrivedRecord> TakeRecords() = 0;
    virtual std::vector<ArrivedMessage> TakeMessages() = 0;
};

class HostContract : public test::ContractOf<HostPlace> {};

/// A trace window under test, and what it got.
class TracePlace {
public:
    virtual ~TracePlace() = default;

    virtual TraceWindow& Trace() = 0;

    /// The title of the only one that is there.
    virtual const wchar_t* Title() = 0;

    /// What it got since it was asked last.
    virtual std::vector<ArrivedRecord> TakeRecords() = 0;
};

class TraceContract : public test::ContractOf<TracePlace> {};

/// Boxes under test, and the person in front of them.
class BoxPlace {
public:
    virtual ~BoxPlace() = default;

    virtual Boxes& TheBoxes() = 0;

    /// What the person reads while `show` runs, who then presses the button with that number.
    virtual std::wstring ReadDuring(const std::function<void()>& show, int button) = 0;
};

class BoxContract : public test::ContractOf<BoxPlace> {};

}  // namespace ferry::script::contract
