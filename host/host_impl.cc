// The host: sessions by unguessable token, each event run in its turn of the
// runtime, answers in the JSON shapes of the host's interface. Each session
// has its own database connection (under --auth database, with the user's
// own login), and each event is one transaction of it.
#include <fstream>
#include <map>
#include <mutex>
#include <random>
#include <stdexcept>

#include "host/host.h"
#include "host/modules.h"
#include "host/runtime.h"
#include "host/session.h"
#include "services/cp1252.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/store_port.h"

namespace watrix {

namespace {

Reply Refuse(int status, const std::string& reason) { return {status, {{"error", reason}}}; }

// 32 bytes from the system's random source, as hex.
std::string NewToken() {
  std::random_device device;
  static const char kHex[] = "0123456789abcdef";
  std::string token;
  for (int i = 0; i < 8; ++i) {
    const unsigned word = device();
    for (int k = 0; k < 8; ++k) token.push_back(kHex[(word >> (4 * k)) & 0xF]);
  }
  return token;
}

// A user id or organisation: 1 to 8 characters of code page 1252.
bool Identity(const nlohmann::json& request, const char* key, std::string* out,
              std::string* why) {
  if (!request.contains(key) || !request[key].is_string()) {
    *why = std::string("\"") + key + "\" must be a text";
    return false;
  }
  if (!lk::Utf8ToCp1252(request[key].get<std::string>(), out, why)) {
    *why = std::string("\"") + key + "\": " + *why;
    return false;
  }
  if (out->empty() || out->size() > 8) {
    *why = std::string("\"") + key + "\" must hold 1 to 8 characters";
    return false;
  }
  return true;
}

// Checks the database before the host serves: it must open with the URL as
// given, the schema is created where it is missing (no data is loaded), and
// logins of the users' own need PostgreSQL. Throws std::runtime_error with
// the reason.
void PrepareDatabase(const HostOptions& options) {
  if (options.database.empty()) return;
  // An SQLite URL names a file, and says which; a PostgreSQL URL may hold a
  // password, and is not repeated.
  const std::string which =
      options.database.rfind("sqlite:", 0) == 0 ? " " + options.database : "";
  std::string why;
  std::unique_ptr<lk::store::Database> db = lk::store::Database::Open(options.database, &why);
  if (db == nullptr) throw std::runtime_error("cannot open the database" + which + ": " + why);
  if (options.auth == "database" && db->dialect() != lk::store::Dialect::kPostgres)
    throw std::runtime_error("--auth database needs a PostgreSQL database, not" + which);
  try {
    if (!lk::store::SchemaExists(*db->connection())) lk::store::CreateSchema(*db->connection());
  } catch (const std::exception& e) {
    throw std::runtime_error("cannot create the schema in the database" + which + ": " +
                             e.what());
  }
}

class HostImpl : public Host {
 public:
  explicit HostImpl(const HostOptions& options)
      : options_(options), modules_(options.module_dir, "LKBASE") {
    PrepareDatabase(options_);
  }

  ~HostImpl() override {
    // Sessions go in a turn of the runtime, as they ran.
    runtime_.Run<int>([this] {
      sessions_.clear();
      return 0;
    });
  }

  Reply CreateSession(const nlohmann::json& request) override {
    if (!request.is_object()) return Refuse(400, "the request must be a JSON object");
    std::string user, org, why;
    if (!Identity(request, "user", &user, &why) || !Identity(request, "org", &org, &why))
      return Refuse(400, why);
    if (options_.auth == "database" &&
        (!request.contains("password") || !request["password"].is_string()))
      return Refuse(400, "\"password\" must be a text");
    StartRequest start;
    if (request.contains("start")) {
      const nlohmann::json& s = request["start"];
      if (!s.is_object() || !s.contains("procedure") || !s["procedure"].is_string())
        return Refuse(400, "\"start\" needs a \"procedure\"");
      start.procedure = s["procedure"].get<std::string>();
      if (s.contains("mode")) {
        if (!s["mode"].is_string()) return Refuse(400, "\"mode\" must be a text");
        start.mode = s["mode"].get<std::string>();
      }
      if (s.contains("command")) {
        if (!s["command"].is_string() ||
            !lk::Utf8ToCp1252(s["command"].get<std::string>(), &start.command, &why) ||
            start.command.size() > 80)
          return Refuse(400, "\"command\" must be a text of at most 80 characters");
      }
      if (s.contains("import")) {
        if (!s["import"].is_object()) return Refuse(400, "\"import\" must be an object");
        for (const auto& [name, value] : s["import"].items()) {
          std::string text;
          if (!value.is_string() || !lk::Utf8ToCp1252(value.get<std::string>(), &text, &why))
            return Refuse(400, "import " + name + " must be a text of code page 1252");
          start.import.emplace_back(name, text);
        }
      }
    }
    // The session's own connection, made here rather than in a turn of the
    // runtime, so that a slow login holds up no other session's events.
    std::unique_ptr<lk::StorePort> store;
    if (options_.database.empty()) {
      store = std::make_unique<lk::NullStore>();
    } else {
      std::string url = options_.database;
      if (options_.auth == "database")
        url = lk::store::WithCredentials(url, request["user"].get<std::string>(),
                                         request["password"].get<std::string>());
      std::unique_ptr<lk::store::Database> db = lk::store::Database::Open(url, &why);
      if (db == nullptr) return Refuse(400, "the database refused the session: " + why);
      store = std::make_unique<lk::store::SociStore>(std::move(db));
    }
    return runtime_.Run<Reply>([&]() -> Reply {
      auto session = std::make_unique<Session>(&modules_, std::move(store), SystemClock());
      const std::string refused = session->Start(user, org, start);
      if (!refused.empty()) return Refuse(400, refused);
      std::string token = NewToken();
      nlohmann::json screen = session->Screen();
      std::lock_guard<std::mutex> lock(mutex_);
      sessions_[token] = std::move(session);
      return {201, {{"session", token}, {"screen", std::move(screen)}}};
    });
  }

  Reply Screen(const std::string& token) override { return FromText(ScreenText(token)); }

  Reply Event(const std::string& token, const nlohmann::json& event) override {
    return FromText(EventText(token, event));
  }

  // The screen's text is written in the session's turn; the HTTP thread
  // then sends it as it is.
  TextReply ScreenText(const std::string& token) override {
    return runtime_.Run<TextReply>([&]() -> TextReply {
      Session* s = Find(token);
      if (s == nullptr) return ToText(Refuse(401, "unknown session"));
      return {200, s->ScreenText()};
    });
  }

  TextReply EventText(const std::string& token, const nlohmann::json& event) override {
    return runtime_.Run<TextReply>([&]() -> TextReply {
      Session* s = Find(token);
      if (s == nullptr) return ToText(Refuse(401, "unknown session"));
      return s->EventText(event);
    });
  }

  Reply EndSession(const std::string& token) override {
    return runtime_.Run<Reply>([&]() -> Reply {
      std::lock_guard<std::mutex> lock(mutex_);
      auto it = sessions_.find(token);
      if (it == sessions_.end()) return Refuse(401, "unknown session");
      sessions_.erase(it);
      return {204, nullptr};
    });
  }

 private:
  Session* Find(const std::string& token) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = sessions_.find(token);
    return it == sessions_.end() ? nullptr : it->second.get();
  }

  HostOptions options_;
  Modules modules_;
  std::mutex mutex_;
  std::map<std::string, std::unique_ptr<Session>> sessions_;
  Runtime runtime_;  // the turns in which sessions run
};

}  // namespace

TextReply ToText(const Reply& reply) {
  if (reply.body.is_null()) return {reply.status, ""};
  return {reply.status,
          reply.body.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)};
}

Reply FromText(const TextReply& reply) {
  if (reply.body.empty()) return {reply.status, nullptr};
  return {reply.status, nlohmann::json::parse(reply.body)};
}

std::unique_ptr<Host> MakeHost(const HostOptions& options) {
  return std::make_unique<HostImpl>(options);
}

}  // namespace watrix
