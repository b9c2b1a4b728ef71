// How far a control has come in being activated in its container, and whether it is the UI-active one there.
// A container may call back while it is being notified of a step; steps that are not in the tables are
// refused.
//
//   InPlace place;
//   place.step(InPlaceStep::Enter);    // true: the container is being notified
//   place.step(InPlaceStep::Enter);    // false: it asks again from within a notification
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>

namespace tabulon::activex {

template <class State, class Step>
struct Transition {
  State from;
  Step step;
  State to;
};

template <class State, class Step>
class StateMachine {
 public:
  using Table = std::span<const Transition<State, Step>>;
  constexpr StateMachine(State first, Table table) : state_(first), table_(table) {}

  State state() const { return state_; }
  bool is(State state) const { return state_ == state; }
  // False, without any change, if the step is not possible now.
  bool step(Step step) {
    const auto found =
        std::ranges::find_if(table_, [&](const auto& row) { return row.from == state_ && row.step == step; });
    if (found == table_.end()) return false;
    state_ = found->to;
    return true;
  }

 private:
  State state_;
  Table table_;
};

// ---- In place

enum class InPlaceState : std::uint8_t { Outside, Entering, Inside, Leaving };
enum class InPlaceStep : std::uint8_t { Enter, Arrive, Leave, End };

inline constexpr Transition<InPlaceState, InPlaceStep> in_place_steps[] = {
    {InPlaceState::Outside, InPlaceStep::Enter, InPlaceState::Entering},
    {InPlaceState::Entering, InPlaceStep::Arrive, InPlaceState::Inside},
    {InPlaceState::Entering, InPlaceStep::End, InPlaceState::Outside},  // the container refuses
    {InPlaceState::Entering, InPlaceStep::Leave, InPlaceState::Leaving},
    {InPlaceState::Inside, InPlaceStep::Leave, InPlaceState::Leaving},
    {InPlaceState::Leaving, InPlaceStep::End, InPlaceState::Outside},
};

struct InPlace : StateMachine<InPlaceState, InPlaceStep> {
  InPlace() : StateMachine(InPlaceState::Outside, in_place_steps) {}
};

// ---- UI active, inside

enum class UiState : std::uint8_t { Inactive, Activating, Active, Deactivating };
enum class UiStep : std::uint8_t { Activate, Done, Deactivate, Refused };

inline constexpr Transition<UiState, UiStep> ui_steps[] = {
    {UiState::Inactive, UiStep::Activate, UiState::Activating},
    {UiState::Activating, UiStep::Done, UiState::Active},
    {UiState::Activating, UiStep::Refused, UiState::Inactive},
    {UiState::Activating, UiStep::Deactivate, UiState::Deactivating},
    {UiState::Active, UiStep::Deactivate, UiState::Deactivating},
    {UiState::Deactivating, UiStep::Done, UiState::Inactive},
};

struct UiActive : StateMachine<UiState, UiStep> {
  UiActive() : StateMachine(UiState::Inactive, ui_steps) {}
};

}  // namespace tabulon::activex
