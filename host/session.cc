// A session: events in, units called, flows and links taken, screens out.
#include "host/session.h"

#include <sys/time.h>

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>

#include "frame/views.h"
#include "host/screen.h"
#include "host/screen_text.h"
#include "services/cp1252.h"
#include "services/text.h"

namespace watrix {

namespace {

constexpr char kCurrentCommand[] = "$#CURR#$";
constexpr char kPermittedText[] =
    "Field does not contain permitted value; Please retry; Use Help for field information.";

Reply Refuse(int status, const std::string& reason) { return {status, {{"error", reason}}}; }

std::string RefusalText(const std::string& reason) {
  return nlohmann::json{{"error", reason}}.dump(-1, ' ', false,
                                                 nlohmann::json::error_handler_t::replace);
}

std::string Trimmed(const char* text, std::size_t width) {
  std::string s(text, strnlen(text, width));
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s;
}

bool IsEntry(std::uint16_t tag) {
  return tag == lk::kTagEntry || tag == lk::kTagProtected || tag == lk::kTagMultiline;
}
bool IsOption(std::uint16_t tag) {
  return tag == lk::kTagRadio || tag == lk::kTagDropDown || tag == lk::kTagCheck;
}
bool IsList(std::uint16_t tag) { return tag == lk::kTagList || tag == lk::kTagColumnDropDown; }

const lk::ValueDictionary* ValuesOf(const Field& f) {
  if (f.tag == lk::kTagRadio || f.tag == lk::kTagDropDown)
    return static_cast<const lk::ItemDescriptor*>(f.control->descriptor)->values;
  if (f.tag == lk::kTagCheck)
    return static_cast<const lk::CheckDescriptor*>(f.control->descriptor)->values;
  return nullptr;
}

// Whether `value` is in a permitted list, compared as the text compare does.
bool Permitted(const lk::PermittedRow* list, const std::string& value, int* position) {
  int i = 0;
  for (const lk::PermittedRow* p = list; p->literal != nullptr; ++p, ++i) {
    if (lk::TextCompare(p->literal, value.c_str()) == 0) {
      if (position != nullptr) *position = i;
      return true;
    }
  }
  return false;
}

// Checks a number typed into a field of `type`: a decimal number whose
// integer part fits the field's digits.
bool NumberFits(const std::string& text, const lk::AttributeType& type, std::string* why) {
  std::string t = text;
  while (!t.empty() && t.front() == ' ') t.erase(t.begin());
  while (!t.empty() && t.back() == ' ') t.pop_back();
  if (t.empty()) return true;
  std::size_t i = 0;
  if (t[0] == '-' || t[0] == '+') ++i;
  int integer_digits = 0;
  bool digits = false, point = false;
  for (; i < t.size(); ++i) {
    if (std::isdigit(static_cast<unsigned char>(t[i]))) {
      digits = true;
      if (!point) ++integer_digits;
    } else if (t[i] == '.' && !point) {
      point = true;
    } else {
      *why = "value '" + lk::Cp1252ToUtf8(text) + "' is no number";
      return false;
    }
  }
  if (!digits) {
    *why = "value '" + lk::Cp1252ToUtf8(text) + "' is no number";
    return false;
  }
  const int length = static_cast<int>(type.length & 0xFFFF);
  const int decimals = static_cast<int>(type.length >> 16);
  std::size_t first = t.find_first_not_of("+-0");
  int significant = integer_digits;
  if (first != std::string::npos && first < t.size()) {
    const std::size_t dot = t.find('.');
    significant = static_cast<int>((dot == std::string::npos ? t.size() : dot) -
                                   std::min(first, dot == std::string::npos ? t.size() : dot));
  }
  if (significant > length - decimals) {
     *why = "number '" + lk::Cp1252ToUtf8(text) + "' has more than " + std::to_string(length - decimals) +
           " digits before the point";
    return false;
  }
  return true;
}

}  // namespace

Clock SystemClock() {
  return [](std::int32_t* date, std::int32_t* time, char* text) {
    timeval tv;
    gettimeofday(&tv, nullptr);
    std::tm local;
    localtime_r(&tv.tv_sec, &local);
    *date = (local.tm_year + 1900) * 10000 + (local.tm_mon + 1) * 100 + local.tm_mday;
    *time = local.tm_hour * 10000 + local.tm_min * 100 + local.tm_sec;
    std::snprintf(text, 21, "%08d%06d%06ld", static_cast<int>(*date), static_cast<int>(*time),
                  static_cast<long>(tv.tv_usec));
  };
}

Session::Session(Modules* modules, std::unique_ptr<lk::StorePort> store, Clock clock)
    : modules_(modules), store_(std::move(store)), clock_(std::move(clock)) {
  database_area_.assign(lk::kDatabaseAreaSize, '\0');
  session_port_ = {this, PortClock, store_->ModuleHandle()};
  window_port_ = {this, PortWindowOpen, PortWindowClose, PortControlEnable, PortControlDisable};
  lk::ResetRunContext(&rc_, database_area_.data());
}

Session::~Session() = default;

// ---- Ports ----

void Session::PortClock(void* host, std::int32_t* date, std::int32_t* time, char* text) {
  static_cast<Session*>(host)->clock_(date, time, text);
}

void Session::PortWindowOpen(void* host, const char* name) {
  auto* self = static_cast<Session*>(host);
  Activation* act = self->current_ != nullptr ? self->current_ : self->top();
  if (act == nullptr) return;
  const lk::WindowRow* row = act->module->FindWindow(name);
  if (row == nullptr || row->procedure_id != act->procedure->id) return;
  self->OpenWindowOf(act, row);
}

void Session::PortWindowClose(void* host, const char* name) {
  auto* self = static_cast<Session*>(host);
  Activation* act = self->current_ != nullptr ? self->current_ : self->top();
  if (act == nullptr) return;
  for (auto it = act->windows.begin(); it != act->windows.end(); ++it) {
    if (std::strcmp((*it)->row()->name, name) == 0) {
      act->windows.erase(it);
      return;
    }
  }
}

void Session::PortControlEnable(void* host, const char* keyword) {
  auto* self = static_cast<Session*>(host);
  Activation* act = self->current_ != nullptr ? self->current_ : self->top();
  if (act == nullptr) return;
  // A body that runs before its window is shown sets the controls of the
  // window it is about to show.
  if (act->windows.empty()) self->OpenFirstWindow(act);
  if (act->windows.empty()) return;
  OpenWindow* w = act->windows.back().get();
  if (const lk::ActionControlRow* a = w->ActionByKeyword(keyword)) w->SetOverride(a->control_id, true);
}

void Session::PortControlDisable(void* host, const char* keyword) {
  auto* self = static_cast<Session*>(host);
  Activation* act = self->current_ != nullptr ? self->current_ : self->top();
  if (act == nullptr) return;
  if (act->windows.empty()) self->OpenFirstWindow(act);
  if (act->windows.empty()) return;
  OpenWindow* w = act->windows.back().get();
  if (const lk::ActionControlRow* a = w->ActionByKeyword(keyword)) w->SetOverride(a->control_id, false);
}

// ---- Activations and windows ----

std::unique_ptr<Activation> Session::NewActivation(const ModuleImage* module,
                                                   const lk::ProcedureRow* procedure) {
  auto act = std::make_unique<Activation>();
  act->module = module;
  act->procedure = procedure;
  // Views are zeroed: the all-zero view is the empty view.
  act->import_view.assign(std::max<lk::u32>(procedure->import_size, 1), '\0');
  act->export_view.assign(std::max<lk::u32>(procedure->export_size, 1), '\0');
  return act;
}

OpenWindow* Session::OpenWindowOf(Activation* act, const lk::WindowRow* row) {
  for (auto& w : act->windows)
    if (w->row() == row) return w.get();
  const Dialog* dialog = act->module->resources().FindDialog(row->dialog_id);
  act->windows.push_back(std::make_unique<OpenWindow>(row, dialog));
  return act->windows.back().get();
}

OpenWindow* Session::OpenFirstWindow(Activation* act) {
  const lk::WindowRow* row = act->module->FindWindow(act->procedure->name);
  if (row == nullptr) return nullptr;
  return OpenWindowOf(act, row);
}

// ---- Starting ----

std::string Session::Start(const std::string& user, const std::string& org,
                           const StartRequest& start) {
  const ModuleImage* module = &modules_->main();
  const lk::ProcedureRow* procedure = module->FindProcedure(start.procedure.c_str());
  if (procedure == nullptr) return "unknown procedure " + start.procedure;
  if (procedure->entry == nullptr) {
    const std::string owner = module->ModuleOf(procedure->name);
    return "Procedure " + start.procedure + " of module " + (owner.empty() ? module->name() : owner) +
           " is not available.";
  }
  if (start.mode != "E" && start.mode != "D") return "start mode must be \"E\" or \"D\"";
  std::unique_ptr<Activation> act = NewActivation(module, procedure);
  const lk::ViewNameRow* views = module->FindViews(procedure->name);
  // Names an import attribute "VIEW.ENTITY.ATTRIBUTE" by its export ViewRow.
  auto put = [&](const lk::AttributeRow* a, const std::string& value) {
    char* at = act->import_view.data() + a->import_location;
    lk::TextMove(at, value.c_str(), static_cast<int>(a->storage));
  };
  for (const auto& [name, value] : start.import) {
    const lk::AttributeRow* found = nullptr;
    for (const lk::ViewRow* v = views != nullptr ? views->view_rows : nullptr;
         v != nullptr && v->view_name != nullptr && found == nullptr; ++v) {
      const std::size_t n = std::strlen(v->view_name);
      if (name.compare(0, n, v->view_name) != 0) continue;
      for (const lk::AttributeRow* a = v->attributes; a->attribute_name != nullptr; ++a)
        if (name.substr(n) == a->attribute_name) found = a;
    }
    if (found == nullptr || found->import_location == 0)
      return "import attribute " + name + " is not in the import view";
    if (value.size() + 1 > found->storage)
      return "import attribute " + name + " is longer than " +
             std::to_string(found->storage - 1) + " characters";
    put(found, value);
  }
  // The user and organisation of the run go into the import's SYSTEM_VARIABLE.
  for (const lk::ViewRow* v = views != nullptr ? views->view_rows : nullptr;
       v != nullptr && v->view_name != nullptr; ++v) {
    if (std::strstr(v->view_name, "SYSTEM_VARIABLE.") == nullptr) continue;
    for (const lk::AttributeRow* a = v->attributes; a->attribute_name != nullptr; ++a) {
      if (a->import_location == 0) continue;
      if (std::strcmp(a->attribute_name, "USER_ID_CODE") == 0) put(a, user);
      if (std::strcmp(a->attribute_name, "CURRENT_ORG_ID") == 0) put(a, org);
    }
  }
  lk::SetCommand(&rc_, start.command.c_str());
  stack_.push_back(std::move(act));
  Activation* first = top();
  if (!BeginEvent()) return store_->failure();
  if (start.mode == "E") {
    CallUnit(first, procedure->entry);
    EndCall(first);
  } else {
    OpenWindow* w = OpenFirstWindow(first);
    const lk::EventRow* open = w != nullptr ? w->EventOf(w->row()->dialog_id, "Open") : nullptr;
    if (open != nullptr) {
      RunEventRow(first, w, open);
    } else {
      Redisplay(first);
    }
  }
  if (!failed_) CommitEvent();
  return "";
}

// ---- Calling units ----

void Session::CallUnit(Activation* act, lk::ProcedureEntry entry) {
  current_ = act;
  std::memcpy(rc_.status, "  ", 3);
  std::memcpy(rc_.status_detail, "  ", 3);
  rc_.run_mode = ' ';
  rc_.subscript_fault = ' ';
  rc_.exit_rollback = ' ';
  try {
    entry(&session_port_, &window_port_, &rc_, act->import(), act->exported());
  } catch (const std::exception& e) {
    // Units do not throw; a host that meets one stops the event all the same.
    std::memcpy(rc_.status, "FE", 3);
    std::memcpy(rc_.status_detail, "HX", 3);
    std::snprintf(database_area_.data(), database_area_.size(), "%s", e.what());
  }
  current_ = nullptr;
}

void Session::RunEventRow(Activation* act, OpenWindow* window, const lk::EventRow* row) {
  if (row->command != nullptr) lk::SetCommand(&rc_, row->command);
  if (row->map_first == 'Y') {
    if (act->procedure->export_to_import != nullptr)
      act->procedure->export_to_import(act->exported(), act->import());
    if (window->row()->read_window != nullptr) window->row()->read_window(window->handle(), act->import());
    if (act->procedure->import_to_export != nullptr)
      act->procedure->import_to_export(act->import(), act->exported());
  }
  CallUnit(act, row->handler);
  EndCall(act);
}

void Session::RunKeyword(Activation* act, OpenWindow* window, const char* keyword) {
  lk::SetCommand(&rc_, keyword);
  if (act->procedure->export_to_import != nullptr)
    act->procedure->export_to_import(act->exported(), act->import());
  if (window->row()->read_window != nullptr) window->row()->read_window(window->handle(), act->import());
  CallUnit(act, act->procedure->entry);
  EndCall(act);
}

// ---- The event's transaction ----

namespace {

// `text` with every byte that is not part of well-formed UTF-8 replaced by
// '?': a database's words go into the JSON of the screen.
std::string WellFormed(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size();) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    const std::size_t n = c < 0x80           ? 1
                          : (c >> 5) == 0x6  ? 2
                          : (c >> 4) == 0xE  ? 3
                          : (c >> 3) == 0x1E ? 4
                                             : 0;
    bool ok = n != 0 && i + n <= text.size();
    for (std::size_t k = 1; ok && k < n; ++k)
      ok = (static_cast<unsigned char>(text[i + k]) & 0xC0) == 0x80;
    if (ok) {
      out.append(text, i, n);
      i += n;
    } else {
      out.push_back('?');
      ++i;
    }
  }
  return out;
}

}  // namespace

bool Session::BeginEvent() {
  store_->Begin();
  const std::string why = store_->failure();
  if (why.empty()) return true;
  StoreFailed(why);
  return false;
}

void Session::CommitEvent() {
  store_->Commit();
  const std::string why = store_->failure();
  if (!why.empty()) StoreFailed(why);
}

void Session::StoreFailed(const std::string& why) {
  failed_ = true;
  failure_ = {
      {"unit_name", ""},
      {"unit_number", ""},
      {"statement", ""},
      {"status", "FE"},
      {"status_detail", "DB"},
      {"database", WellFormed(why)},
  };
}

// ---- How a call ends ----

void Session::EndCall(Activation* act) {
  if (lk::FailureTravels(rc_)) {
    failed_ = true;
    store_->Rollback();
    const char* statement = rc_.statement != nullptr ? rc_.statement : "";
    std::string database(database_area_.data(), strnlen(database_area_.data(), database_area_.size()));
    failure_ = {
        {"unit_name", lk::Cp1252ToUtf8(Trimmed(rc_.unit_name, sizeof rc_.unit_name))},
        {"unit_number", Trimmed(rc_.unit_number, sizeof rc_.unit_number)},
        {"statement", lk::Cp1252ToUtf8(Trimmed(statement, 10))},
        {"status", Trimmed(rc_.status, sizeof rc_.status)},
        {"status_detail", Trimmed(rc_.status_detail, sizeof rc_.status_detail)},
        {"database", lk::Cp1252ToUtf8(database)},
    };
    return;
  }
  if (rc_.exit_rollback == 'R') {
    store_->Rollback();
    BeginEvent();
  }
  for (const lk::ExitRow* e = act->procedure->exit_rows; e != nullptr && e->exit_state != 0; ++e) {
    if (e->exit_state != rc_.exit_state) continue;
    for (const lk::FlowRow* f = act->procedure->flow_rows; f != nullptr && f->flow_id != 0; ++f) {
      if (f->flow_id == e->flow_id) {
        TakeFlow(act, f);
        return;
      }
    }
  }
  if (act->link != nullptr && act == top() && act->link->returns != nullptr &&
      act->link->returns->exit_state == rc_.exit_state) {
    ReturnByLink();
    return;
  }
  if (act == stack_.front().get() && act->link == nullptr &&
      (rc_.exit_state == lk::EXIT_RETURN || rc_.exit_state == lk::EXIT_CANCEL)) {
    EndRun();
    return;
  }
  Redisplay(act);
}

void Session::Redisplay(Activation* act) {
  if (act->windows.empty()) {
    // The procedure's first window opens here, after a run of its body (a
    // flow or a start in mode "E"). A window that has an Open event runs it
    // as it opens, over what the body left: the event reads the window's
    // data, as it does when the window opens first (mode "D").
    OpenWindow* w = OpenFirstWindow(act);
    const lk::EventRow* open = w != nullptr ? w->EventOf(w->row()->dialog_id, "Open") : nullptr;
    if (open != nullptr) {
      if (w->row()->write_window != nullptr) w->row()->write_window(w->handle(), act->exported());
      RunEventRow(act, w, open);
      return;
    }
  }
  // The window on top first, so that a field's cursor mark fires there.
  for (auto it = act->windows.rbegin(); it != act->windows.rend(); ++it) {
    OpenWindow* w = it->get();
    if (w->row()->write_window != nullptr) w->row()->write_window(w->handle(), act->exported());
  }
  if (rc_.message_kind != 'N') {
    message_ = nlohmann::json{{"kind", std::string(1, rc_.message_kind)},
                              {"text", lk::Cp1252ToUtf8(Trimmed(rc_.exit_message, sizeof rc_.exit_message))}};
  }
}

void Session::EndRun() {
  for (auto& act : stack_) act->windows.clear();
  stack_.clear();
  ended_ = true;
}

void Session::FlowFails(Activation* source, const std::string& procedure,
                        const std::string& module) {
  // The window stays; the exit state that led here stays in RunContext.
  Redisplay(source);
  message_ = nlohmann::json{
      {"kind", "E"},
      {"text", "Procedure " + procedure + " of module " + module + " is not available."}};
}

void Session::TakeFlow(Activation* source, const lk::FlowRow* flow) {
  const ModuleImage* module = source->module;
  const lk::ProcedureRow* target = module->FindProcedure(flow->target_id);
  if (target == nullptr) {
    FlowFails(source, flow->target_name, module->name());
    return;
  }
  std::string owner = module->ModuleOf(target->name);
  if (owner.empty()) owner = module->name();
  if (owner != module->name()) {
    std::string error;
    const ModuleImage* other = modules_->Get(owner, &error);
    const lk::ProcedureRow* there = other != nullptr ? other->FindProcedure(target->name) : nullptr;
    if (there == nullptr || there->entry == nullptr) {
      FlowFails(source, target->name, owner);
      return;
    }
    // Views cross modules by the stream pair; no sibling module is built
    // with this host yet, so such a link is refused the same way.
    FlowFails(source, target->name, owner);
    return;
  }
  if (target->entry == nullptr) {
    FlowFails(source, target->name, owner);
    return;
  }
  std::unique_ptr<Activation> next = NewActivation(module, target);
  next->link = flow;
  if (flow->send != nullptr) flow->send(next->import(), source->exported());
  if (flow->on_command != nullptr && std::strcmp(flow->on_command, kCurrentCommand) != 0)
    lk::SetCommand(&rc_, flow->on_command);
  stack_.push_back(std::move(next));
  Activation* t = top();
  if (flow->on_mode != nullptr && std::strcmp(flow->on_mode, "D") == 0) {
    OpenWindow* w = OpenFirstWindow(t);
    const lk::EventRow* open = w != nullptr ? w->EventOf(w->row()->dialog_id, "Open") : nullptr;
    if (open != nullptr) {
      RunEventRow(t, w, open);
    } else {
      Redisplay(t);
    }
    return;
  }
  CallUnit(t, target->entry);
  EndCall(t);
}

void Session::ReturnByLink() {
  std::unique_ptr<Activation> target = std::move(stack_.back());
  stack_.pop_back();
  target->windows.clear();
  Activation* source = top();
  const lk::FlowRow* flow = target->link;
  if (flow->receive != nullptr) {
    flow->receive(source->exported(), source->import(), target->exported());
  } else if (source->procedure->export_to_import != nullptr) {
    source->procedure->export_to_import(source->exported(), source->import());
  }
  if (flow->return_command == nullptr || flow->return_command[0] == '\0') {
    std::memset(rc_.command, 0, sizeof rc_.command);
  } else if (std::strcmp(flow->return_command, kCurrentCommand) != 0) {
    lk::SetCommand(&rc_, flow->return_command);
  }
  CallUnit(source, source->procedure->entry);
  EndCall(source);
}

// ---- Events ----

struct Session::Matched {
  int field = -1;                         // ControlRow index, or -1 for a static
  const DialogControl* resource = nullptr;
  lk::u32 id = 0;
};

namespace {

// Matches `key` (an id, its digits as text, or a text) to a control of
// `window`: by id; else by attribute, then label, then design name.
std::string MatchControl(const OpenWindow& window, const nlohmann::json& key, int* field,
                         lk::u32* id) {
  auto by_id = [&](long long n) -> std::string {
    for (std::size_t k = 0; k < window.fields().size(); ++k) {
      if (window.fields()[k].control->control_id == n) {
        *field = static_cast<int>(k);
        *id = static_cast<lk::u32>(n);
        return "";
      }
    }
    if (window.dialog() != nullptr && window.dialog()->Find(static_cast<lk::u32>(n)) != nullptr) {
      *field = -1;
      *id = static_cast<lk::u32>(n);
      return "";
    }
    return "window " + std::string(window.row()->name) + " has no control " + std::to_string(n);
  };
  if (key.is_number_integer()) return by_id(key.get<long long>());
  if (!key.is_string()) return "control must be a number or a text";
  const std::string text = key.get<std::string>();
  if (!text.empty() && text.size() < 10 &&
      text.find_first_not_of("0123456789") == std::string::npos)
    return by_id(std::stoll(text));
  for (int step = 0; step < 3; ++step) {
    int hits = 0;
    for (std::size_t k = 0; k < window.fields().size(); ++k) {
      const Field& f = window.fields()[k];
      std::string candidate;
      if (step == 0) {
        candidate = f.attribute;
      } else if (step == 1) {
        const DialogControl* own =
            window.dialog() != nullptr ? window.dialog()->Find(f.control->control_id) : nullptr;
        if (f.tag == lk::kTagButton || f.tag == lk::kTagScroll || f.tag == 0) {
          if (own != nullptr) candidate = lk::Cp1252ToUtf8(own->text);
        } else if (f.control->label_id != 0 && window.dialog() != nullptr) {
          if (const DialogControl* label = window.dialog()->Find(f.control->label_id))
            candidate = lk::Cp1252ToUtf8(label->text);
        }
      } else {
        candidate = f.control->control_name != nullptr ? f.control->control_name : "";
      }
      if (!candidate.empty() && candidate == text) {
        ++hits;
        *field = static_cast<int>(k);
        *id = f.control->control_id;
      }
    }
    if (hits > 1) return "control '" + text + "' matches more than one control";
    if (hits == 1) return "";
  }
  return "window " + std::string(window.row()->name) + " has no control '" + text + "'";
}

}  // namespace

int Session::Take(const nlohmann::json& event, std::string* reason) {
  auto refuse = [reason](int status, std::string why) {
    *reason = std::move(why);
    return status;
  };
  if (!event.is_object()) return refuse(400, "an event must be a JSON object");
  if (ended_) return refuse(409, "the run has ended");
  for (const char* required : {"window", "control", "event"})
    if (!event.contains(required)) return refuse(400, std::string("event needs \"") + required + "\"");
  if (!event["window"].is_string()) return refuse(400, "window must be a text");
  if (!event["event"].is_string()) return refuse(400, "event must be a text");
  const std::string window_name = event["window"].get<std::string>();
  const std::string kind = event["event"].get<std::string>();
  if (kind != "Click" && kind != "DoubleClick" && kind != "Changed" && kind != "Keypress" &&
      kind != "Close")
    return refuse(400, "unknown event '" + kind + "'");

  // The window: only the top one of the active procedure takes events.
  Activation* act = top();
  OpenWindow* window = nullptr;
  bool elsewhere = false;
  for (auto& a : stack_) {
    for (auto& w : a->windows) {
      if (window_name != w->row()->name) continue;
      if (a.get() == act && w.get() == act->windows.back().get()) window = w.get();
      else elsewhere = true;
    }
  }
  if (window == nullptr) {
    if (elsewhere) return refuse(409, "window " + window_name + " is not the active window");
    return refuse(400, "no open window " + window_name);
  }

  int field = -1;
  lk::u32 control_id = 0;
  std::string why = MatchControl(*window, event["control"], &field, &control_id);
  if (!why.empty()) return refuse(400, why);
  if (field < 0 && kind != "Close") return refuse(400, "a static text takes no events");
  if (field >= 0 && !window->Enabled(control_id))
    return refuse(400, "control " + std::to_string(control_id) + " is disabled");

  // Values typed since the last screen: checked whole before any goes in.
  struct Typed {
    int field;
    std::string value;  // 1252
    int option;
  };
  std::vector<Typed> typed;
  std::string refusal_message;
  if (event.contains("values")) {
    if (!event["values"].is_object()) return refuse(400, "values must be an object");
    for (const auto& [key, value] : event["values"].items()) {
      int k = -1;
      lk::u32 id = 0;
      nlohmann::json key_json = key;
      why = MatchControl(*window, key_json, &k, &id);
      if (!why.empty()) return refuse(400, why);
      if (k < 0) return refuse(400, "a static text takes no value");
      const Field& f = window->fields()[k];
      if (!IsEntry(f.tag) && !IsOption(f.tag))
        return refuse(400, "control " + key + " takes no typed value");
      if (f.tag == lk::kTagProtected) return refuse(400, "field " + key + " is protected");
      if (!window->Enabled(id)) return refuse(400, "control " + key + " is disabled");
      if (!value.is_string()) return refuse(400, "value of " + key + " must be a text");
      std::string text;
      if (!lk::Utf8ToCp1252(value.get<std::string>(), &text, &why))
        return refuse(400, "value of " + key + ": " + why);
      int option = -1;
      if (IsEntry(f.tag)) {
        const char letter = f.type->type_letter != nullptr ? f.type->type_letter[0] : 'S';
        if (letter == 'B' || letter == 'L' || letter == 'I') {
          if (!NumberFits(text, *f.type, &why)) return refuse(400, "value of " + key + ": " + why);
        } else if (static_cast<int>(text.size()) > f.width) {
          return refuse(400, "value of " + key + " is longer than its field (" +
                                 std::to_string(f.width) + " characters)");
        }
        if (f.type->permitted != nullptr && !Permitted(f.type->permitted, text, nullptr))
          refusal_message = kPermittedText;
      } else {
        const lk::ValueDictionary* values = ValuesOf(f);
        if (values == nullptr || values->permitted == nullptr ||
            !Permitted(values->permitted, text, &option))
          refusal_message = kPermittedText;
      }
      typed.push_back({k, text, option});
    }
  }
  int row = 0;
  std::vector<int> rows;
  // "rows" given, even empty, is the whole highlight of a multiple-selection
  // list: an empty array takes every highlight off.
  const bool has_rows = event.contains("rows");
  if (event.contains("row")) {
    if (!event["row"].is_number_integer()) return refuse(400, "row must be a number");
    row = event["row"].get<int>();
  }
  if (event.contains("rows")) {
    if (!event["rows"].is_array()) return refuse(400, "rows must be an array");
    for (const auto& r : event["rows"]) {
      if (!r.is_number_integer()) return refuse(400, "rows must hold numbers");
      rows.push_back(r.get<int>());
    }
  }
  std::string key_text;
  if (event.contains("key")) {
    if (!event["key"].is_string()) return refuse(400, "key must be a text");
    if (!lk::Utf8ToCp1252(event["key"].get<std::string>(), &key_text, &why))
      return refuse(400, "key: " + why);
  }
  if (row != 0 || has_rows) {
    if (field < 0 || !IsList(window->fields()[field].tag))
      return refuse(400, "row and rows belong to a list");
    const Field& f = window->fields()[field];
    auto shown = [&f](int n) {
      for (const ListRow& r : f.rows)
        if (r.row_number == n) return true;
      return false;
    };
    if (row != 0 && !shown(row)) return refuse(400, "the list shows no row " + std::to_string(row));
    for (int n : rows)
      if (!shown(n)) return refuse(400, "the list shows no row " + std::to_string(n));
  }

  // From here the event is taken.
  message_.reset();
  failure_ = nullptr;
  help_.clear();
  failed_ = false;
  if (!refusal_message.empty()) {
    message_ = nlohmann::json{{"kind", "E"}, {"text", refusal_message}};
    return 200;
  }

  std::vector<int> changed;
  for (const Typed& t : typed) {
    Field& f = window->fields()[t.field];
    if (IsEntry(f.tag)) {
      const std::string before = window->ValueOf(t.field);
      std::string after = t.value;
      while (!after.empty() && after.back() == ' ') after.pop_back();
      window->SetValue(t.field, t.value);
      if (before != after) changed.push_back(t.field);
    } else {
      if (f.option != t.option) changed.push_back(t.field);
      f.option = t.option;
    }
  }
  if (kind == "Changed" && field >= 0 &&
      std::find(changed.begin(), changed.end(), field) == changed.end())
    changed.push_back(field);
  if (has_rows) {
    window->SelectRows(field, rows);
  } else if (row != 0) {
    window->SelectRow(field, row);
  }

  // A Help button runs no unit.
  if (kind == "Click" && field >= 0) {
    const lk::ActionControlRow* a = window->ActionOf(control_id);
    if (a != nullptr && (a->action == 3 || a->action == 5 ||
                         (a->command != nullptr && std::strcmp(a->command, "HELP") == 0))) {
      help_ = std::string("/help/") + window->row()->name;
      return 200;
    }
  }

  if (!BeginEvent()) return 200;
  // Changed events of the fields the user edited, then the event itself.
  for (int k : changed) {
    const lk::EventRow* r = window->EventOf(window->fields()[k].control->control_id, "Changed");
    if (r == nullptr || (kind == "Changed" && k == field)) continue;
    RunEventRow(act, window, r);
    if (failed_ || ended_ || top() != act || act->windows.empty() ||
        act->windows.back().get() != window) {
      if (!failed_) CommitEvent();
      return 200;
    }
  }
  const lk::EventRow* r = window->EventOf(field >= 0 ? control_id : window->row()->dialog_id,
                                          kind.c_str());
  if (kind == "Close" && r == nullptr) r = window->EventOf(window->row()->dialog_id, "Close");
  if (r != nullptr) {
    if (kind == "Keypress" && r->value_location != 0)
      lk::TextMove(act->export_view.data() + r->value_location, key_text.c_str(),
                   static_cast<int>(r->value_form & 0xFFFF));
    RunEventRow(act, window, r);
  } else if (kind == "Click" && field >= 0) {
    const lk::ActionControlRow* a = window->ActionOf(control_id);
    if (a != nullptr && (a->command_code & 0xFFFF) != 0) {
      // A press that opens a dialog of the procedure without an event action.
      for (const lk::WindowRow* w = act->module->head().windows; w->procedure_id != 0; ++w)
        if (w->procedure_id == act->procedure->id && w->dialog_id == (a->command_code & 0xFFFF))
          OpenWindowOf(act, w);
      Redisplay(act);
    } else if (a != nullptr && a->command != nullptr && a->command[0] != '\0') {
      RunKeyword(act, window, a->command);
    }
  }
  if (!failed_) CommitEvent();
  return 200;
}

Reply Session::Event(const nlohmann::json& event) {
  std::string reason;
  const int status = Take(event, &reason);
  if (status != 200) return Refuse(status, reason);
  return {200, Screen()};
}

TextReply Session::EventText(const nlohmann::json& event) {
  std::string reason;
  const int status = Take(event, &reason);
  if (status != 200) return {status, RefusalText(reason)};
  return {200, ScreenText()};
}

nlohmann::json Session::Screen() const { return nlohmann::json::parse(ScreenText()); }

std::string Session::ScreenText() const {
  using screen_text::AppendBool;
  using screen_text::AppendString;
  std::string out;
  // The last screen's size: a list's screen is large, and grows no longer
  // by doubling.
  out.reserve(screen_size_);
  out.append("{\"ended\":");
  AppendBool(&out, ended_);
  out.append(",\"failure\":");
  out.append(failure_.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
  if (!help_.empty()) {
    out.append(",\"help\":");
    AppendString(&out, help_);
  }
  out.append(",\"message\":");
  if (message_.has_value()) {
    out.append(message_->dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
  } else {
    out.append("null");
  }
  out.append(",\"windows\":[");
  if (const Activation* act = top()) {
    bool first = true;
    for (const auto& w : act->windows) {
      if (!first) out.push_back(',');
      first = false;
      AppendWindowJson(*w, *act->module, act->procedure->name, &out);
    }
  }
  out.append("]}");
  screen_size_ = out.size();
  return out;
}

}  // namespace watrix
