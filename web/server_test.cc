// Tests of the HTTP layer alone: HttpServer in front of a fake Host that
// records what reaches it, driven over a real socket by httplib::Client.
// The host's own behaviour is tested in the host's tests and end to end in
// tests/http.
#include "web/server.h"

#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <httplib.h>
#include <nlohmann/json.hpp>

namespace watrix {
namespace {

using nlohmann::json;

// Knows one session, "good". Records every call.
class FakeHost : public Host {
 public:
  Reply CreateSession(const json& request) override {
    std::lock_guard<std::mutex> lock(mu_);
    calls_.push_back("CreateSession");
    last_request_ = request;
    if (request.value("user", "") == "THROW") throw std::runtime_error("boom");
    return {201, {{"session", "good"}, {"screen", {{"windows", json::array()}}}}};
  }

  Reply Screen(const std::string& token) override {
    std::lock_guard<std::mutex> lock(mu_);
    calls_.push_back("Screen");
    last_token_ = token;
    if (token != "good") return {401, {{"error", "unknown session"}}};
    return {200, {{"windows", json::array()}, {"ended", false}}};
  }

  Reply Event(const std::string& token, const json& event) override {
    std::lock_guard<std::mutex> lock(mu_);
    calls_.push_back("Event");
    last_token_ = token;
    last_request_ = event;
    if (token != "good") return {401, {{"error", "unknown session"}}};
    return {200, {{"echo", event}}};
  }

  Reply EndSession(const std::string& token) override {
    std::lock_guard<std::mutex> lock(mu_);
    calls_.push_back("EndSession");
    last_token_ = token;
    if (token != "good") return {401, {{"error", "unknown session"}}};
    return {204, nullptr};
  }

  std::vector<std::string> calls() {
    std::lock_guard<std::mutex> lock(mu_);
    return calls_;
  }
  std::string last_token() {
    std::lock_guard<std::mutex> lock(mu_);
    return last_token_;
  }
  json last_request() {
    std::lock_guard<std::mutex> lock(mu_);
    return last_request_;
  }

 private:
  std::mutex mu_;
  std::vector<std::string> calls_;
  std::string last_token_;
  json last_request_;
};

const char kIndex[] = "<!doctype html><title>index</title>";
const char kApp[] = "export const x = 1;";
const char kStyle[] = "body { margin: 0 }";
const char kMenuHelp[] = "<h1>menu help</h1>";
const char kPending[] = "<h1>help pending</h1>";

const EmbeddedFile kTestFiles[] = {
    {"/static/index.html", kIndex, sizeof(kIndex) - 1},
    {"/static/app.js", kApp, sizeof(kApp) - 1},
    {"/static/style.css", kStyle, sizeof(kStyle) - 1},
    {"/help/RT1_REFERENCE_TABLE_MAINT_MENU.html", kMenuHelp,
     sizeof(kMenuHelp) - 1},
    {"/help/_pending.html", kPending, sizeof(kPending) - 1},
    {nullptr, nullptr, 0},
};

const EmbeddedFile kNoPendingFiles[] = {
    {"/help/RT1_REFERENCE_TABLE_MAINT_MENU.html", kMenuHelp,
     sizeof(kMenuHelp) - 1},
    {nullptr, nullptr, 0},
};

constexpr char kJsonType[] = "application/json; charset=utf-8";

class HttpServerTest : public testing::Test {
 protected:
  void SetUp() override { StartWith(kTestFiles, 256 * 1024); }

  void StartWith(const EmbeddedFile* files, std::size_t max_body) {
    HttpServerOptions options;
    options.files = files;
    options.max_body_bytes = max_body;
    server_ = std::make_unique<HttpServer>(&host_, options);
    std::string error;
    ASSERT_TRUE(server_->Start("127.0.0.1:0", &error)) << error;
    ASSERT_GT(server_->port(), 0);
    client_ = std::make_unique<httplib::Client>("127.0.0.1", server_->port());
  }

  void TearDown() override {
    client_.reset();
    server_.reset();
  }

  static httplib::Headers Bearer(const std::string& token) {
    return {{"Authorization", "Bearer " + token}};
  }

  static json Body(const httplib::Result& r) {
    return json::parse(r->body, nullptr, false);
  }

  static void ExpectJsonError(const httplib::Result& r, int status) {
    ASSERT_TRUE(r) << httplib::to_string(r.error());
    EXPECT_EQ(status, r->status);
    EXPECT_EQ(kJsonType, r->get_header_value("Content-Type"));
    json body = Body(r);
    ASSERT_TRUE(body.is_object()) << r->body;
    ASSERT_TRUE(body.contains("error")) << r->body;
    EXPECT_TRUE(body["error"].is_string());
  }

  FakeHost host_;
  std::unique_ptr<HttpServer> server_;
  std::unique_ptr<httplib::Client> client_;
};

TEST_F(HttpServerTest, CreateSessionPassesTheRequest) {
  auto r = client_->Post("/api/sessions",
                         R"({"user": "JSMITH", "org": "ZZZZZZZZ"})",
                         "application/json");
  ASSERT_TRUE(r);
  EXPECT_EQ(201, r->status);
  EXPECT_EQ(kJsonType, r->get_header_value("Content-Type"));
  EXPECT_EQ("no-store", r->get_header_value("Cache-Control"));
  EXPECT_EQ("good", Body(r)["session"]);
  EXPECT_EQ((json{{"user", "JSMITH"}, {"org", "ZZZZZZZZ"}}),
            host_.last_request());
}

TEST_F(HttpServerTest, MissingTokenIs401WithoutAskingTheHost) {
  ExpectJsonError(client_->Get("/api/screen"), 401);
  ExpectJsonError(client_->Post("/api/events", "{}", "application/json"), 401);
  ExpectJsonError(client_->Delete("/api/session"), 401);
  ExpectJsonError(client_->Get("/api/screen", {{"Authorization", "Basic x"}}),
                  401);
  ExpectJsonError(client_->Get("/api/screen", {{"Authorization", "Bearer "}}),
                  401);
  auto r = client_->Get("/api/screen");
  ASSERT_TRUE(r);
  EXPECT_EQ("no-store", r->get_header_value("Cache-Control"));
  EXPECT_EQ("Bearer", r->get_header_value("WWW-Authenticate"));
  EXPECT_TRUE(host_.calls().empty());
}

TEST_F(HttpServerTest, UnknownTokenIs401FromTheHost) {
  ExpectJsonError(client_->Get("/api/screen", Bearer("stale")), 401);
  EXPECT_EQ("stale", host_.last_token());
  EXPECT_EQ(std::vector<std::string>{"Screen"}, host_.calls());
}

TEST_F(HttpServerTest, TokenReachesTheHost) {
  auto r = client_->Get("/api/screen", {{"Authorization", "bearer  good "}});
  ASSERT_TRUE(r);
  EXPECT_EQ(200, r->status);
  EXPECT_EQ("good", host_.last_token());
  EXPECT_EQ("no-store", r->get_header_value("Cache-Control"));
  EXPECT_EQ(false, Body(r)["ended"]);

  const json event = {{"window", "W"}, {"control", "C&lose"}, {"event", "Click"}};
  r = client_->Post("/api/events", Bearer("good"), event.dump(),
                    "application/json");
  ASSERT_TRUE(r);
  EXPECT_EQ(200, r->status);
  EXPECT_EQ(kJsonType, r->get_header_value("Content-Type"));
  EXPECT_EQ(event, host_.last_request());
  EXPECT_EQ(event, Body(r)["echo"]);
}

TEST_F(HttpServerTest, MalformedBodiesAre400) {
  const char* kBodies[] = {"", "{", "{\"a\": }", "[1, 2]", "\"text\"", "17",
                           "null", "{\"a\": \"\xff\"}"};
  for (const char* body : kBodies) {
    SCOPED_TRACE(body);
    ExpectJsonError(
        client_->Post("/api/events", Bearer("good"), body, "application/json"),
        400);
    ExpectJsonError(client_->Post("/api/sessions", body, "application/json"),
                    400);
  }
  EXPECT_TRUE(host_.calls().empty());
}

TEST_F(HttpServerTest, LargeBodyIs413) {
  std::string big = "{\"pad\": \"" + std::string(300 * 1024, 'x') + "\"}";
  ExpectJsonError(
      client_->Post("/api/events", Bearer("good"), big, "application/json"),
      413);
  ExpectJsonError(client_->Post("/api/sessions", big, "application/json"), 413);
  EXPECT_TRUE(host_.calls().empty());
}

TEST_F(HttpServerTest, BodyLimitIsExact) {
  StartWith(kTestFiles, 64);
  auto padded = [](std::size_t size) {
    std::string head = "{\"p\":\"";
    return head + std::string(size - head.size() - 2, 'x') + "\"}";
  };
  auto r = client_->Post("/api/events", Bearer("good"), padded(64),
                         "application/json");
  ASSERT_TRUE(r);
  EXPECT_EQ(200, r->status);
  ExpectJsonError(client_->Post("/api/events", Bearer("good"), padded(65),
                                "application/json"),
                  413);
}

TEST_F(HttpServerTest, UnknownPathsAre404) {
  ExpectJsonError(client_->Get("/api/nothing"), 404);
  ExpectJsonError(client_->Post("/api/nothing", "{}", "application/json"), 404);
  ExpectJsonError(client_->Get("/api"), 404);
  ExpectJsonError(client_->Get("/nothing.html"), 404);
  ExpectJsonError(client_->Get("/static/app.js"), 404);
  ExpectJsonError(client_->Get("/help/"), 404);
  ExpectJsonError(client_->Get("/help/missing.css"), 404);
  EXPECT_TRUE(host_.calls().empty());
}

TEST_F(HttpServerTest, WrongMethodIs405) {
  struct Case {
    const char* method;
    const char* path;
    const char* allow;
  };
  const Case kCases[] = {
      {"GET", "/api/sessions", "POST"},  {"DELETE", "/api/screen", "GET"},
      {"GET", "/api/events", "POST"},    {"POST", "/api/session", "DELETE"},
      {"PUT", "/api/events", "POST"},    {"POST", "/", "GET, HEAD"},
      {"DELETE", "/app.js", "GET, HEAD"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.method) + " " + c.path);
    httplib::Result r = std::string(c.method) == "GET"
                            ? client_->Get(c.path)
                        : std::string(c.method) == "POST"
                            ? client_->Post(c.path, "{}", "application/json")
                        : std::string(c.method) == "PUT"
                            ? client_->Put(c.path, "{}", "application/json")
                            : client_->Delete(c.path);
    ExpectJsonError(r, 405);
    EXPECT_EQ(c.allow, r->get_header_value("Allow"));
  }
  EXPECT_TRUE(host_.calls().empty());
}

TEST_F(HttpServerTest, ServesEmbeddedFiles) {
  struct Case {
    const char* path;
    const char* body;
    const char* type;
  };
  const Case kCases[] = {
      {"/", kIndex, "text/html; charset=utf-8"},
      {"/index.html", kIndex, "text/html; charset=utf-8"},
      {"/app.js", kApp, "text/javascript; charset=utf-8"},
      {"/style.css", kStyle, "text/css; charset=utf-8"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.path);
    auto r = client_->Get(c.path);
    ASSERT_TRUE(r);
    EXPECT_EQ(200, r->status);
    EXPECT_EQ(c.body, r->body);
    EXPECT_EQ(c.type, r->get_header_value("Content-Type"));
  }
  auto head = client_->Head("/");
  ASSERT_TRUE(head);
  EXPECT_EQ(200, head->status);
  EXPECT_TRUE(head->body.empty());
}

TEST_F(HttpServerTest, HelpFallsBackToThePendingPage) {
  auto r = client_->Get("/help/RT1_REFERENCE_TABLE_MAINT_MENU");
  ASSERT_TRUE(r);
  EXPECT_EQ(200, r->status);
  EXPECT_EQ(kMenuHelp, r->body);
  EXPECT_EQ("text/html; charset=utf-8", r->get_header_value("Content-Type"));

  r = client_->Get("/help/RT1_REFERENCE_TABLE_MAINT_MENU.html");
  ASSERT_TRUE(r);
  EXPECT_EQ(kMenuHelp, r->body);

  r = client_->Get("/help/RT50_LAB_REMARK_MAINT_LIST");
  ASSERT_TRUE(r);
  EXPECT_EQ(200, r->status);
  EXPECT_EQ(kPending, r->body);
  EXPECT_EQ("text/html; charset=utf-8", r->get_header_value("Content-Type"));
}

TEST_F(HttpServerTest, HelpWithoutPendingPageIs404) {
  StartWith(kNoPendingFiles, 1024);
  auto r = client_->Get("/help/RT1_REFERENCE_TABLE_MAINT_MENU");
  ASSERT_TRUE(r);
  EXPECT_EQ(200, r->status);
  ExpectJsonError(client_->Get("/help/RT50_LAB_REMARK_MAINT_LIST"), 404);
  ExpectJsonError(client_->Get("/"), 404);
}

TEST_F(HttpServerTest, DeleteSessionIs204) {
  auto r = client_->Delete("/api/session", Bearer("good"));
  ASSERT_TRUE(r);
  EXPECT_EQ(204, r->status);
  EXPECT_TRUE(r->body.empty());
  EXPECT_EQ("good", host_.last_token());
  ExpectJsonError(client_->Delete("/api/session", Bearer("other")), 401);
}

TEST_F(HttpServerTest, HostExceptionIs500) {
  ExpectJsonError(client_->Post("/api/sessions", R"({"user": "THROW"})",
                                "application/json"),
                  500);
  auto r = client_->Post("/api/sessions", "{}", "application/json");
  ASSERT_TRUE(r);
  EXPECT_EQ(201, r->status);
}

TEST_F(HttpServerTest, StopClosesThePort) {
  server_->Stop();
  server_->Stop();
  auto r = client_->Get("/");
  EXPECT_FALSE(r);
}

TEST(HttpServerStart, PortZeroPicksDistinctFreePorts) {
  FakeHost host;
  HttpServer a(&host), b(&host);
  std::string error;
  ASSERT_TRUE(a.Start("127.0.0.1:0", &error)) << error;
  ASSERT_TRUE(b.Start("127.0.0.1:0", &error)) << error;
  EXPECT_GT(a.port(), 0);
  EXPECT_GT(b.port(), 0);
  EXPECT_NE(a.port(), b.port());
  EXPECT_EQ("127.0.0.1", a.host());

  // The port is taken now.
  HttpServer c(&host);
  EXPECT_FALSE(c.Start("127.0.0.1:" + std::to_string(a.port()), &error));
  EXPECT_FALSE(error.empty());
}

TEST(HttpServerStart, RefusesMalformedAddresses) {
  FakeHost host;
  HttpServer server(&host);
  std::string error;
  EXPECT_FALSE(server.Start("localhost", &error));
  EXPECT_NE(std::string::npos, error.find("localhost"));
}

TEST(ParseListenAddress, Table) {
  struct Case {
    const char* text;
    bool ok;
    const char* host;
    int port;
  };
  const Case kCases[] = {
      {"127.0.0.1:8080", true, "127.0.0.1", 8080},
      {"0.0.0.0:0", true, "0.0.0.0", 0},
      {"localhost:65535", true, "localhost", 65535},
      {"[::1]:80", true, "::1", 80},
      {"127.0.0.1:65536", false, "", 0},
      {"127.0.0.1:", false, "", 0},
      {":8080", false, "", 0},
      {"127.0.0.1", false, "", 0},
      {"127.0.0.1:80a", false, "", 0},
      {"127.0.0.1:-1", false, "", 0},
      {"::1:80", false, "", 0},
      {"[]:80", false, "", 0},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.text);
    std::string host = "";
    int port = -7;
    EXPECT_EQ(c.ok, ParseListenAddress(c.text, &host, &port));
    if (c.ok) {
      EXPECT_EQ(c.host, host);
      EXPECT_EQ(c.port, port);
    }
  }
}

TEST(WebFiles, TableIsWellFormed) {
  for (const EmbeddedFile* f = kWebFiles; f->path != nullptr; ++f) {
    SCOPED_TRACE(f->path);
    std::string path = f->path;
    EXPECT_TRUE(path.rfind("/static/", 0) == 0 || path.rfind("/help/", 0) == 0);
    ASSERT_NE(nullptr, f->data);
    EXPECT_EQ('\0', f->data[f->size]);
  }
}

}  // namespace
}  // namespace watrix
