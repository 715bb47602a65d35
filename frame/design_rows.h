// Pieces that the design rows of every module share: the control type of a
// button's ActionControlRow, the one-word button descriptor, and the
// ReturnRows of the two ways a linked procedure comes back, and a
// procedure's single link with its exit, flow and return rows.
#ifndef WATRIX_FRAME_DESIGN_ROWS_H_
#define WATRIX_FRAME_DESIGN_ROWS_H_

#include <cstdint>

#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/transport/plan.h"

namespace lk {

// ActionControlRow.control_type of every button.
inline constexpr u32 kButtonType = 0x00010004;

// A button's ControlDescriptor: the single 16-bit word of its tag.
inline constexpr std::uint16_t kButtonDescriptorWord[] = {kTagButton};
inline constexpr const void* kButton = kButtonDescriptorWord;

// The ReturnRow of a link that comes back on EXIT_RETURN, and on EXIT_CANCEL.
inline constexpr ReturnRow kReturnsOnReturn[] = {{0, 0, EXIT_RETURN, 0, 0, 0}};
inline constexpr ReturnRow kReturnsOnCancel[] = {{0, 0, EXIT_CANCEL, 0, 0, 0}};

// The ActionControlRow of a button: plain, with a keyword and its code, or
// the window's Help. `rules` is the button's enable rule list, or null.
constexpr ActionControlRow PlainAction(u32 id, const char* name,
                                       const void* const* rules = nullptr) {
  return {id, "", 0, rules, 0, kButtonType, name};
}
constexpr ActionControlRow KeywordAction(u32 id, const char* keyword, u32 code,
                                         const char* name) {
  return {id, keyword, 0, nullptr, KeywordCode(code), kButtonType, name};
}
// A keyword button whose press opens dialog `dialog` of its procedure with
// no event action: the dialog id stands in the low half of the code.
constexpr ActionControlRow DialogAction(u32 id, const char* keyword, u32 code, u32 dialog,
                                        const char* name, const void* const* rules = nullptr) {
  return {id, keyword, 0, rules, KeywordCode(code) | (dialog & 0xFFFF), kButtonType, name};
}
constexpr ActionControlRow HelpAction(u32 id, const char* name) {
  return {id, "", 3, nullptr, 0, kButtonType, name};
}

// The enable rules that tie a list window's buttons to the list control
// `List`: kWithRowRules (mode 0, Change and Delete) hold while the list has a
// selected row, kWithoutRowRules (mode 1, Add) while it has none.
template <u32 List>
struct ListRules {
  static constexpr RuleRecord kWithRow = {0, 0, static_cast<std::uint16_t>(List),
                                          {0xFFFF, 0xFFFF, 0xFFFF}};
  static constexpr RuleRecord kWithoutRow = {1, 0, static_cast<std::uint16_t>(List),
                                             {0xFFFF, 0xFFFF, 0xFFFF}};
  static constexpr const void* kWithRowRules[] = {&kWithRow, nullptr};
  static constexpr const void* kWithoutRowRules[] = {&kWithoutRow, nullptr};
};

// A procedure's single link to another procedure: the exit state that takes
// it, and the flow row with its send and receive over `Flow`. The flow state
// cell is the host's, zeroed.
struct LinkDecl {
  u32 exit_state;
  u32 flow_id;  // low half 0x00E4
  u32 target_id;
  const char* target_name;
  const ReturnRow* returns;
  const char* on_mode;
  const char* on_command;
  const char* return_mode;
  const char* return_command;
};

// One link of a procedure: its ExitRow and its FlowRow, with send and
// receive over `Flow`.
template <const LinkDecl& L, const FlowBinding& Flow>
struct Link {
  static constexpr ExitRow kExit = {L.exit_state, L.flow_id, 'M'};
  static constexpr FlowRow kFlow = {L.flow_id,      "L",           L.target_id, L.target_name,
                                    Send<Flow>,     Receive<Flow>, L.returns,   L.on_mode,
                                    L.on_command,   L.return_mode, L.return_command, 0};
};

// A procedure's links (each a Link), in table order, with the flow state
// cell the host owns, zeroed.
template <class... Each>
struct Links {
  static inline u32 state[2];
  static constexpr ExitRow kExits[] = {Each::kExit..., {0, 0, 0}};
  static constexpr FlowRow kFlows[] = {
      Each::kFlow...,
      {0, nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0},
  };
};

template <const LinkDecl& L, const FlowBinding& Flow>
using SingleLink = Links<Link<L, Flow>>;

}  // namespace lk

#endif  // WATRIX_FRAME_DESIGN_ROWS_H_
