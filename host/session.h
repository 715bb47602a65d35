// One session: the run of a procedure tree for one user. It owns the
// RunContext, the views of every active procedure, their open windows and
// the links between them; it takes an event, calls the units the tables
// name, and acts on what they leave in RunContext: a failure, a rollback, a
// flow, a return by a link, or a redisplay.
//
// Thread safety: none. The host calls a session from its one runtime thread.
#ifndef WATRIX_HOST_SESSION_H_
#define WATRIX_HOST_SESSION_H_

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "frame/host_port.h"
#include "frame/run_context.h"
#include "frame/store_port.h"
#include "host/host.h"
#include "host/modules.h"
#include "host/window_state.h"

namespace watrix {

// The session's clock: fills date (YYYYMMDD), time (HHMMSS) and the 20-digit
// text of "now".
using Clock = std::function<void(std::int32_t* date, std::int32_t* time, char* text)>;

// The machine's local time, with microseconds.
Clock SystemClock();

// A procedure that is active: its views, its open windows, and the flow
// that entered it (null for the first one).
struct Activation {
  const ModuleImage* module = nullptr;
  const lk::ProcedureRow* procedure = nullptr;
  std::vector<char> import_view;
  std::vector<char> export_view;
  std::vector<std::unique_ptr<OpenWindow>> windows;  // bottom to top
  const lk::FlowRow* link = nullptr;

  void* import() { return import_view.data(); }
  void* exported() { return export_view.data(); }
};

// How a session starts: a procedure, "E" (run the body) or "D" (open the
// first window with its Open event), a COMMAND, and import attributes by
// name ("EXPORT.CHARACTERISTIC.UOM_TYPE").
struct StartRequest {
  std::string procedure = "RT1_REFERENCE_TABLE_MAINT_MENU";
  std::string mode = "E";
  std::string command;
  std::vector<std::pair<std::string, std::string>> import;  // 1252 texts
};

class Session {
 public:
  Session(Modules* modules, std::unique_ptr<lk::StorePort> store, Clock clock);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Starts the run for `user` and `org` (1252 texts). Returns "" or the
  // reason the start is refused.
  std::string Start(const std::string& user, const std::string& org, const StartRequest& start);

  // Runs one EVENT and answers the SCREEN, or a refusal. EventText gives
  // the same answer with its body as JSON text, as the HTTP interface sends
  // it; Event parses that text.
  Reply Event(const nlohmann::json& event);
  TextReply EventText(const nlohmann::json& event);

  // The SCREEN as it stands, as JSON text, and parsed.
  std::string ScreenText() const;
  nlohmann::json Screen() const;

  bool ended() const { return ended_; }
  const lk::RunContext& run_context() const { return rc_; }

 private:
  struct Matched;

  // Takes one EVENT: 200 when it ran (the SCREEN tells how), else the
  // status of the refusal, with its reason in *reason.
  int Take(const nlohmann::json& event, std::string* reason);

  // Entry points of the services, through the ports behind HandleA/HandleB.
  static void PortClock(void* host, std::int32_t* date, std::int32_t* time, char* text);
  static void PortWindowOpen(void* host, const char* name);
  static void PortWindowClose(void* host, const char* name);
  static void PortControlEnable(void* host, const char* keyword);
  static void PortControlDisable(void* host, const char* keyword);

  Activation* top() { return stack_.empty() ? nullptr : stack_.back().get(); }
  const Activation* top() const { return stack_.empty() ? nullptr : stack_.back().get(); }

  // Calls a unit of `act` with the five arguments.
  void CallUnit(Activation* act, lk::ProcedureEntry entry);
  // Runs an EventRow of `window`: COMMAND, map-first reading, the handler,
  // then how the call ends.
  void RunEventRow(Activation* act, OpenWindow* window, const lk::EventRow* row);
  // Runs the body after a keyword: COMMAND, reading the window, the body.
  void RunKeyword(Activation* act, OpenWindow* window, const char* keyword);
  // What the host does once a unit has returned.
  void EndCall(Activation* act);
  // The event's transaction: Begin reports a store that cannot begin as the
  // event's failure and answers false; Commit reports work that did not
  // stand the same way.
  bool BeginEvent();
  void CommitEvent();
  void StoreFailed(const std::string& why);
  void TakeFlow(Activation* source, const lk::FlowRow* flow);
  void ReturnByLink();
  void Redisplay(Activation* act);
  void EndRun();
  void FlowFails(Activation* source, const std::string& procedure, const std::string& module);
  OpenWindow* OpenWindowOf(Activation* act, const lk::WindowRow* row);
  OpenWindow* OpenFirstWindow(Activation* act);
  std::unique_ptr<Activation> NewActivation(const ModuleImage* module,
                                            const lk::ProcedureRow* procedure);

  Modules* modules_;
  std::unique_ptr<lk::StorePort> store_;
  Clock clock_;
  lk::SessionPort session_port_{};
  lk::WindowPort window_port_{};
  lk::RunContext rc_{};
  std::vector<char> database_area_;
  std::vector<std::unique_ptr<Activation>> stack_;
  Activation* current_ = nullptr;  // the activation whose unit is running
  bool ended_ = false;
  bool failed_ = false;  // a fatal stop in this event
  std::optional<nlohmann::json> message_;
  nlohmann::json failure_;
  std::string help_;
  mutable std::size_t screen_size_ = 0;  // of the last SCREEN text
};

}  // namespace watrix

#endif  // WATRIX_HOST_SESSION_H_
