// A window declared once: each control with its id, name, descriptor, label,
// enable rules, the view attribute it shows and the event actions it raises,
// written in one place. From that declaration WindowRows<W> derives the
// window's ControlRows, ActionControlRows, EventRows and field bindings, and
// its WindowRow with the read_window and write_window of the transport over
// those bindings (frame/transport/plan.h).
//
// Derivation rules:
//   ControlRows      every control, in declaration order.
//   ActionControlRows  every control that has an action (buttons and scroll
//                    buttons), in declaration order: plain, help, or with a
//                    keyword and its code.
//   EventRows        the window's own events (Open) first, then each
//                    control's events in declaration order. A control that
//                    raises DoubleClick and Click lists DoubleClick first,
//                    as a person's double click raises both.
//   FieldBindings    every control, in declaration order.
//
// Contract: a WindowDecl and all it points to are constant expressions with
// static storage; the derived arrays are constant and end with the rows the
// tables' contract asks for.
#ifndef WATRIX_FRAME_WINDOW_DECL_H_
#define WATRIX_FRAME_WINDOW_DECL_H_

#include <array>
#include <cstddef>

#include "frame/design_rows.h"
#include "frame/tables.h"
#include "frame/transport/plan.h"

namespace lk {

// An event of a control or of the window: the EventRow less its control id.
struct EventDecl {
  const char* event = nullptr;  // null: no event
  EventAction handler = nullptr;
  const char* command = nullptr;  // COMMAND put in place, or null
  u32 map_first = ' ';            // 'Y': the window is read first
};

// How a control appears among the ActionControlRows.
// kDialog: a keyword button whose control row opens a dialog of the
// procedure directly (DialogButton), raising no event.
enum class ActionKind { kNone, kPlain, kHelp, kKeyword, kDialog };

struct ControlDecl {
  u32 id;
  const char* name;
  const void* descriptor;
  u32 label_id = 0;
  const u32* dependants = nullptr;
  const void* const* rules = nullptr;
  // The view attribute of a field; for a list its columns and row flag.
  const char* attribute = nullptr;
  const char* const* columns = nullptr;
  const char* flag = nullptr;
  ActionKind action = ActionKind::kNone;
  const char* keyword = "";
  u32 keyword_code = 0;
  u32 opens_dialog = 0;  // kDialog: the dialog id the press opens
  std::array<EventDecl, 2> events = {};
};

// The common controls. A button's Click, when it has one, is its only event.
constexpr ControlDecl Button(u32 id, const char* name, EventDecl click = {},
                             const void* const* rules = nullptr) {
  return {.id = id, .name = name, .descriptor = kButton, .rules = rules,
          .action = ActionKind::kPlain, .events = {click, {}}};
}
// A button that carries a keyword and opens dialog `dialog` of its
// procedure by its control row alone: it has no Click event.
constexpr ControlDecl DialogButton(u32 id, const char* name, const char* keyword, u32 code,
                                   u32 dialog, const void* const* rules = nullptr) {
  return {.id = id, .name = name, .descriptor = kButton, .rules = rules,
          .action = ActionKind::kDialog, .keyword = keyword, .keyword_code = code,
          .opens_dialog = dialog};
}
constexpr ControlDecl HelpButton(u32 id, const char* name) {
  return {.id = id, .name = name, .descriptor = kButton, .action = ActionKind::kHelp};
}
// A scroll button of a list that carries a keyword and raises Click with it.
constexpr ControlDecl ScrollButton(u32 id, const char* name, const void* descriptor,
                                   const char* keyword, u32 code, EventAction click) {
  return {.id = id, .name = name, .descriptor = descriptor, .action = ActionKind::kKeyword,
          .keyword = keyword, .keyword_code = code,
          .events = {EventDecl{"Click", click, keyword, ' '}, {}}};
}
// A button that carries a keyword: a press sends the keyword as COMMAND and
// runs the procedure's body; it raises no event.
constexpr ControlDecl KeywordButton(u32 id, const char* name, const char* keyword, u32 code) {
  return {.id = id, .name = name, .descriptor = kButton, .action = ActionKind::kKeyword,
          .keyword = keyword, .keyword_code = code};
}
// A button that carries a keyword, by which the control enable and disable
// services name it, and raises its Click, which puts no COMMAND in place.
constexpr ControlDecl NamedButton(u32 id, const char* name, const char* keyword, u32 code,
                                  EventDecl click, const void* const* rules = nullptr) {
  return {.id = id, .name = name, .descriptor = kButton, .rules = rules,
          .action = ActionKind::kKeyword, .keyword = keyword, .keyword_code = code,
          .events = {click, {}}};
}
// A field showing `attribute`, labelled by the static `label`.
constexpr ControlDecl Field(u32 id, const char* name, const void* descriptor, u32 label,
                            const char* attribute, EventDecl changed = {}) {
  return {.id = id, .name = name, .descriptor = descriptor, .label_id = label,
          .attribute = attribute, .events = {changed, {}}};
}
// A list of `columns` with its row flag attribute `flag`; a person's double
// click raises DoubleClick and Click, both after the window is read.
constexpr ControlDecl ListBox(u32 id, const char* name, const void* descriptor,
                              const char* const* columns, const char* flag,
                              EventAction double_click, EventAction click,
                              const u32* dependants = nullptr) {
  return {.id = id, .name = name, .descriptor = descriptor, .dependants = dependants,
          .columns = columns, .flag = flag,
          .events = {EventDecl{"DoubleClick", double_click, nullptr, 'Y'},
                     EventDecl{"Click", click, nullptr, 'Y'}}};
}
constexpr EventDecl Click(EventAction handler, u32 map_first = ' ') {
  return {"Click", handler, nullptr, map_first};
}

// The descriptors of a field of type T: one a person types in, one shown
// read-only.
template <const AttributeType& T>
inline constexpr FieldDescriptor kEntryField = {kTagEntry, &T};
template <const AttributeType& T>
inline constexpr FieldDescriptor kShownField = {kTagProtected, &T};
// A multi-line field a person types in.
template <const AttributeType& T>
inline constexpr FieldDescriptor kMultilineField = {kTagMultiline, &T};

// An empty StaticItemRow table, for windows without statics.
inline constexpr StaticItemRow kNoStaticItems[] = {{0, nullptr, 0}};

struct WindowDecl {
  u32 procedure_id;
  u32 dialog_id;
  const char* kind;  // "SD" or "DD"
  const char* name;
  const ViewNameRow* views;
  const ControlDecl* controls;
  int count;
  EventDecl open = {};  // the window's own event (Open, or Close), raised on the dialog id
};

template <std::size_t N>
constexpr WindowDecl DeclareWindow(u32 procedure_id, u32 dialog_id, const char* kind,
                                   const char* name, const ViewNameRow& views,
                                   const ControlDecl (&controls)[N], EventDecl open = {}) {
  return {procedure_id, dialog_id, kind, name, &views, controls, static_cast<int>(N), open};
}

template <const WindowDecl& W>
class WindowRows {
  static constexpr int CountActions() {
    int n = 0;
    for (int i = 0; i < W.count; ++i) n += W.controls[i].action != ActionKind::kNone;
    return n;
  }
  static constexpr int CountEvents() {
    int n = W.open.event != nullptr;
    for (int i = 0; i < W.count; ++i)
      for (const EventDecl& e : W.controls[i].events) n += e.event != nullptr;
    return n;
  }
  static constexpr ActionControlRow Action(const ControlDecl& c) {
    switch (c.action) {
      case ActionKind::kHelp: return HelpAction(c.id, c.name);
      case ActionKind::kKeyword: return KeywordAction(c.id, c.keyword, c.keyword_code, c.name);
      case ActionKind::kDialog:
        return DialogAction(c.id, c.keyword, c.keyword_code, c.opens_dialog, c.name, c.rules);
      default: return PlainAction(c.id, c.name, c.rules);
    }
  }
  static constexpr EventRow Event(u32 id, const EventDecl& e) {
    return {id, e.event, e.handler, e.command, e.map_first, 0, 0, 0};
  }

 public:
  static constexpr std::array<ControlRow, W.count + 1> kControls = [] {
    std::array<ControlRow, W.count + 1> rows{};
    for (int i = 0; i < W.count; ++i) {
      const ControlDecl& c = W.controls[i];
      rows[i] = {c.id, c.descriptor, c.dependants, c.rules, c.label_id, c.name, 0};
    }
    return rows;
  }();

  static constexpr std::array<ActionControlRow, CountActions() + 1> kActions = [] {
    std::array<ActionControlRow, CountActions() + 1> rows{};
    int n = 0;
    for (int i = 0; i < W.count; ++i)
      if (W.controls[i].action != ActionKind::kNone) rows[n++] = Action(W.controls[i]);
    return rows;
  }();

  static constexpr std::array<EventRow, CountEvents() + 1> kEvents = [] {
    std::array<EventRow, CountEvents() + 1> rows{};
    int n = 0;
    if (W.open.event != nullptr) rows[n++] = Event(W.dialog_id, W.open);
    for (int i = 0; i < W.count; ++i)
      for (const EventDecl& e : W.controls[i].events)
        if (e.event != nullptr) rows[n++] = Event(W.controls[i].id, e);
    return rows;
  }();

  static constexpr std::array<FieldBinding, W.count> kFields = [] {
    std::array<FieldBinding, W.count> rows{};
    for (int i = 0; i < W.count; ++i) {
      const ControlDecl& c = W.controls[i];
      rows[i] = {c.id, c.attribute, c.columns, c.flag};
    }
    return rows;
  }();

  static const WindowBinding kBinding;

  static constexpr WindowRow kRow = {W.procedure_id, W.dialog_id, kActions.data(),
                                     kControls.data(), ReadWindow<kBinding>,
                                     WriteWindow<kBinding>, W.kind, "A", kEvents.data(),
                                     W.name, 0, 0, kNoStaticItems, nullptr, kNoStaticItems, 0};
};

template <const WindowDecl& W>
const WindowBinding WindowRows<W>::kBinding = {&WindowRows<W>::kRow, W.views,
                                               WindowRows<W>::kFields.data()};

}  // namespace lk

#endif  // WATRIX_FRAME_WINDOW_DECL_H_
