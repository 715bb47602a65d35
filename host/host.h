// The host as the HTTP interface and the in-process driver see it: sessions,
// screens and events, as JSON in the shapes of the host's interface document.
//
// Thread safety: every method may be called from any thread. The host runs
// the units of all sessions one event at a time: a call waits for its turn
// (host/runtime.h) and then runs on the calling thread.
#ifndef WATRIX_HOST_HOST_H_
#define WATRIX_HOST_HOST_H_

#include <memory>
#include <string>

#include <nlohmann/json.hpp>

namespace watrix {

// An answer: the HTTP status it stands for and its JSON body. Refusals
// (400, 401, 409) carry {"error": "reason"}; 204 has a null body.
struct Reply {
  int status = 200;
  nlohmann::json body;
};

// The same answer with its body as JSON text, as the HTTP interface sends
// it: the text nlohmann::json's dump(-1, ' ', false, replace) makes of the
// body, "" for a null body (204).
struct TextReply {
  int status = 200;
  std::string body;
};

// The text of a Reply, and back.
TextReply ToText(const Reply& reply);
Reply FromText(const TextReply& reply);

class Host {
 public:
  virtual ~Host() = default;

  // POST /api/sessions. `request` holds "user", "org", optionally "password"
  // and "start". 201 with {"session": TOKEN, "screen": SCREEN}, or 400.
  virtual Reply CreateSession(const nlohmann::json& request) = 0;

  // GET /api/screen. 200 with SCREEN, or 401 for an unknown token.
  virtual Reply Screen(const std::string& token) = 0;

  // POST /api/events. 200 with the new SCREEN, 400, 401 or 409.
  virtual Reply Event(const std::string& token, const nlohmann::json& event) = 0;

  // DELETE /api/session. 204, or 401.
  virtual Reply EndSession(const std::string& token) = 0;

  // Screen and Event with the body as JSON text: what the HTTP interface
  // sends. By default the text of Screen's and Event's answers; a host that
  // writes the text itself saves the json tree.
  virtual TextReply ScreenText(const std::string& token) { return ToText(Screen(token)); }
  virtual TextReply EventText(const std::string& token, const nlohmann::json& event) {
    return ToText(Event(token, event));
  }
};

struct HostOptions {
  // Folder that holds liblkbase.so and the libraries of other modules.
  std::string module_dir;
  // Database URL ("sqlite:watrix.db", "postgresql://..."). Each session
  // opens its own connection to it. Empty: sessions have no database (for
  // tests of the host alone).
  std::string database;
  // "none", or "database": a session connects with its user's own login
  // (user id and password of the request in place of the URL's).
  std::string auth = "none";
};

// Loads the module named first in the name list from options.module_dir,
// opens the database once with the URL as given and creates the schema where
// it has none (it never loads data), and makes the host. Throws
// std::runtime_error with a reason when the module cannot be loaded or the
// database cannot be opened, or under auth "database" when it is no
// PostgreSQL database.
std::unique_ptr<Host> MakeHost(const HostOptions& options);

}  // namespace watrix

#endif  // WATRIX_HOST_HOST_H_
