// For the tests of this folder: a host session over TESTMOD on a database
// URL, the way the host makes one, and the few things the tests read of it.
#ifndef WATRIX_TESTS_STORE_CONCURRENCY_CLIENT_SESSION_H_
#define WATRIX_TESTS_STORE_CONCURRENCY_CLIENT_SESSION_H_

#include <cstdlib>
#include <memory>
#include <string>

#include <nlohmann/json.hpp>

#include "host/session.h"
#include "store/database.h"
#include "store/store_port.h"

namespace watrix::testing {

inline std::string BuildFolder() {
  const char* b = std::getenv("WATRIX_BUILD");
  return b != nullptr ? b : ".";
}

// A session on TM1_FORM for JSMITH of ORG1, with its own connection.
struct ClientSession {
  std::unique_ptr<Modules> modules;
  lk::store::SociStore* store = nullptr;  // owned by the session
  std::unique_ptr<Session> session;

  // Answers "" or why the session could not start.
  std::string Open(const std::string& url) {
    modules = std::make_unique<Modules>(BuildFolder(), "TESTMOD");
    std::string error;
    std::unique_ptr<lk::store::Database> db = lk::store::Database::Open(url, &error);
    if (db == nullptr) return error;
    auto owned = std::make_unique<lk::store::SociStore>(std::move(db));
    store = owned.get();
    session = std::make_unique<Session>(modules.get(), std::move(owned), SystemClock());
    return session->Start("JSMITH", "ORG1", StartRequest{"TM1_FORM", "E", "", {}});
  }

  // Clicks `button` of TM1_FORM, with NAME typed in when given.
  Reply Click(const std::string& button, const std::string& name = "") {
    nlohmann::json event = {{"window", "TM1_FORM"}, {"control", button}, {"event", "Click"}};
    if (!name.empty()) event["values"] = {{"NAME", name}};
    return session->Event(event);
  }

  // The value of the form's NOTE field.
  std::string Note() const {
    const nlohmann::json screen = session->Screen();
    for (const auto& c : screen["windows"].back()["controls"])
      if (c["name"] == "NOTE1") return c["value"].get<std::string>();
    return "";
  }
};

}  // namespace watrix::testing

#endif  // WATRIX_TESTS_STORE_CONCURRENCY_CLIENT_SESSION_H_
