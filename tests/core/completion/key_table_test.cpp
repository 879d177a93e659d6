// Every key of the path field in every state.
#include "completion/key_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>

namespace ferry::completion {
namespace {

using State = KeyState;
using Action = KeyAction;

/// All combinations of an open list, completion, Ctrl, Shift and Alt.
std::array<State, 32> AllStates() {
    std::array<State, 32> states;
    for (unsigned bits = 0; bits < states.size(); ++bits) {
        states[bits] = {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0, (bits & 16) != 0};
    }
    return states;
}

void ExpectInEveryState(unsigned key, const std::function<Action(const State&)>& expected) {
    for (const State& state : AllStates()) {
        EXPECT_EQ(ActionOf(key, state), expected(state))
            << "key " << key << (state.IsListOpen ? ", open" : ", closed")
            << (state.IsCompletionOn ? ", completing" : "") << (state.Ctrl ? ", Ctrl" : "")
            << (state.Shift ? ", Shift" : "") << (state.Alt ? ", Alt" : "");
    }
}

TEST(ActionOf, BackspaceAndKWithCtrlGoUpWhileTheListIsClosed) {
    for (const unsigned key : {0x08U, unsigned{'K'}}) {
        ExpectInEveryState(key, [](const State& s) {
            return s.Ctrl && !s.IsListOpen ? Action::UpOneLevel : Action::PassOn;
        });
    }
}

TEST(ActionOf, PageUpGoesUpWhileTheListIsClosed) {
    ExpectInEveryState(0x21,
                       [](const State& s) { return s.IsListOpen ? Action::PassOn : Action::UpOneLevel; });
}

TEST(ActionOf, PageDownDeletesToTheEndWhileTheListIsClosed) {
    ExpectInEveryState(0x22,
                       [](const State& s) { return s.IsListOpen ? Action::PassOn : Action::DeleteToEnd; });
}

TEST(ActionOf, LWithCtrlDeletesToTheEndWhileTheListIsClosed) {
    ExpectInEveryState(
        'L', [](const State& s) { return s.Ctrl && !s.IsListOpen ? Action::DeleteToEnd : Action::PassOn; });
}

TEST(ActionOf, TabWalksTheOpenListAndCompletesAloneWhileItIsClosed) {
    ExpectInEveryState(0x09, [](const State& s) {
        if (s.IsListOpen) {
            return s.Shift ? Action::PreviousItem : Action::NextItem;
        }
        const bool isAlone = !s.Shift && !s.Ctrl && !s.Alt;
        return s.IsCompletionOn && isAlone ? Action::Complete : Action::PassOn;
    });
}

TEST(ActionOf, SpaceAndJWithCtrlComplete) {
    for (const unsigned key : {0x20U, unsigned{'J'}}) {
        ExpectInEveryState(key, [](const State& s) { return s.Ctrl ? Action::Complete : Action::PassOn; });
    }
}

TEST(ActionOf, DownAlwaysCompletes) {
    ExpectInEveryState(0x28, [](const State&) { return Action::Complete; });
}

TEST(ActionOf, UpWalksTheOpenListAndOpensTheFixedItemsOtherwise) {
    ExpectInEveryState(
        0x26, [](const State& s) { return s.IsListOpen ? Action::PreviousItem : Action::OpenFixedItems; });
}

TEST(ActionOf, EnterAcceptsInTheOpenListAndIsPassedOnOtherwise) {
    ExpectInEveryState(
        0x0D, [](const State& s) { return s.IsListOpen ? Action::AcceptItem : Action::NotifyAndPassOn; });
}

TEST(ActionOf, EscapeClosesTheOpenList) {
    ExpectInEveryState(0x1B,
                       [](const State& s) { return s.IsListOpen ? Action::CloseList : Action::PassOn; });
}

TEST(ActionOf, HWithCtrlAsksToClearWhileTheListIsClosed) {
    ExpectInEveryState(
        'H', [](const State& s) { return s.Ctrl && !s.IsListOpen ? Action::AskToClear : Action::PassOn; });
}

TEST(ActionOf, EveryOtherKeyIsPassedOn) {
    const std::array listed = {0x08U, 0x09U, 0x0DU,         0x1BU,         0x20U,         0x21U,        0x22U,
                               0x26U, 0x28U, unsigned{'H'}, unsigned{'J'}, unsigned{'K'}, unsigned{'L'}};
    for (unsigned key = 0; key < 256; ++key) {
        if (std::ranges::find(listed, key) == listed.end()) {
            ExpectInEveryState(key, [](const State&) { return Action::PassOn; });
        }
    }
}

}  // namespace
}  // namespace ferry::completion
