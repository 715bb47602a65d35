// HttpServer on cpp-httplib. Every method of every path comes to one
// handler, which routes by path first and method second, so that a known
// path asked with the wrong method gets 405 and not 404. Errors that
// cpp-httplib answers itself (413 for a large body, 400 for a request it
// cannot read) get their JSON body in the error handler.
#include "web/server.h"

#include <atomic>
#include <chrono>
#include <exception>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <utility>

#include <httplib.h>
#include <sys/socket.h>

namespace watrix {

namespace {

constexpr char kJsonType[] = "application/json; charset=utf-8";
constexpr std::string_view kApiPrefix = "/api/";
constexpr std::string_view kHelpPrefix = "/help/";

struct ApiRoute {
  const char* path;
  const char* method;
};

constexpr ApiRoute kApiRoutes[] = {
    {"/api/sessions", "POST"},
    {"/api/screen", "GET"},
    {"/api/events", "POST"},
    {"/api/session", "DELETE"},
};

bool StartsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

bool EndsWith(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() &&
         text.substr(text.size() - suffix.size()) == suffix;
}

const char* ContentType(std::string_view path) {
  static constexpr std::pair<std::string_view, const char*> kTypes[] = {
      {".html", "text/html; charset=utf-8"},
      {".js", "text/javascript; charset=utf-8"},
      {".mjs", "text/javascript; charset=utf-8"},
      {".css", "text/css; charset=utf-8"},
      {".json", kJsonType},
      {".map", kJsonType},
      {".txt", "text/plain; charset=utf-8"},
      {".svg", "image/svg+xml"},
      {".png", "image/png"},
      {".gif", "image/gif"},
      {".jpg", "image/jpeg"},
      {".jpeg", "image/jpeg"},
      {".ico", "image/x-icon"},
      {".woff", "font/woff"},
      {".woff2", "font/woff2"},
  };
  for (const auto& [suffix, type] : kTypes) {
    if (EndsWith(path, suffix)) return type;
  }
  return "application/octet-stream";
}

const char* ReasonOf(int status) {
  switch (status) {
    case 400: return "bad request";
    case 401: return "missing or unknown session token";
    case 404: return "not found";
    case 405: return "method not allowed";
    case 413: return "request body too large";
    case 500: return "internal error";
    default: return "request refused";
  }
}

// The JSON text of a body. Texts that are not UTF-8 are replaced rather than
// thrown on: an answer is always sent.
std::string Dump(const nlohmann::json& body) {
  return body.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void SendJson(httplib::Response& res, int status, const nlohmann::json& body) {
  res.status = status;
  if (status == 204 || body.is_null()) {
    res.body.clear();
    return;
  }
  res.set_content(Dump(body), kJsonType);
}

void SendError(httplib::Response& res, int status, const std::string& reason) {
  SendJson(res, status, nlohmann::json{{"error", reason}});
}

// The token of "Authorization: Bearer TOKEN", or "" when there is none.
std::string BearerToken(const httplib::Request& req) {
  const std::string value = req.get_header_value("Authorization");
  constexpr std::string_view kScheme = "bearer ";
  if (value.size() < kScheme.size()) return "";
  for (std::size_t i = 0; i < kScheme.size(); ++i) {
    char c = value[i];
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    if (c != kScheme[i]) return "";
  }
  std::size_t begin = kScheme.size();
  std::size_t end = value.size();
  while (begin < end && (value[begin] == ' ' || value[begin] == '\t')) ++begin;
  while (end > begin && (value[end - 1] == ' ' || value[end - 1] == '\t')) --end;
  return value.substr(begin, end - begin);
}

// Parses the body as a JSON object into *out, or answers 400 and returns
// false.
bool ParseObject(const httplib::Request& req, httplib::Response& res,
                 nlohmann::json* out) {
  nlohmann::json body = nlohmann::json::parse(req.body, nullptr, false);
  if (body.is_discarded()) {
    SendError(res, 400, "the body is not valid JSON");
    return false;
  }
  if (!body.is_object()) {
    SendError(res, 400, "the body must be a JSON object");
    return false;
  }
  *out = std::move(body);
  return true;
}

}  // namespace

struct HttpServer::Impl {
  Impl(Host* h, HttpServerOptions o) : host(h), options(o) {
    for (const EmbeddedFile* f = options.files; f && f->path; ++f) {
      files.emplace(f->path, f);
    }
  }

  const EmbeddedFile* Find(const std::string& path) const {
    auto it = files.find(path);
    return it == files.end() ? nullptr : it->second;
  }

  // The embedded file that answers GET `path` outside /api/, or nullptr.
  const EmbeddedFile* Page(std::string_view path) const {
    if (StartsWith(path, kHelpPrefix)) {
      std::string_view name = path.substr(kHelpPrefix.size());
      if (name.empty()) return nullptr;
      if (const EmbeddedFile* f = Find(std::string(path))) return f;
      if (name.find_first_of("./") != std::string_view::npos) return nullptr;
      if (const EmbeddedFile* f = Find(std::string(path) + ".html")) return f;
      return Find("/help/_pending.html");
    }
    if (path == "/") return Find("/static/index.html");
    return Find("/static" + std::string(path));
  }

  void Handle(const httplib::Request& req, httplib::Response& res) {
    const std::string method = req.method == "HEAD" ? "GET" : req.method;
    if (StartsWith(req.path, kApiPrefix)) {
      res.set_header("Cache-Control", "no-store");
      for (const ApiRoute& route : kApiRoutes) {
        if (req.path != route.path) continue;
        if (method != route.method) {
          res.set_header("Allow", route.method);
          SendError(res, 405, std::string("use ") + route.method);
          return;
        }
        Api(req, res);
        return;
      }
      SendError(res, 404, "no such path");
      return;
    }
    const EmbeddedFile* file = Page(req.path);
    if (file == nullptr) {
      SendError(res, 404, "no such page");
      return;
    }
    if (method != "GET") {
      res.set_header("Allow", "GET, HEAD");
      SendError(res, 405, "use GET");
      return;
    }
    res.status = 200;
    res.set_header("Cache-Control", "no-cache");
    res.set_header("X-Content-Type-Options", "nosniff");
    res.set_content(file->data, file->size, ContentType(file->path));
  }

  // REQUIRES: req names one of kApiRoutes with its method.
  void Api(const httplib::Request& req, httplib::Response& res) {
    if (req.path == "/api/sessions") {
      nlohmann::json request;
      if (!ParseObject(req, res, &request)) return;
      Answer(res, host->CreateSession(request));
      return;
    }
    const std::string token = BearerToken(req);
    if (token.empty()) {
      res.set_header("WWW-Authenticate", "Bearer");
      SendError(res, 401, "no session token: send Authorization: Bearer TOKEN");
      return;
    }
    if (req.path == "/api/screen") {
      Answer(res, host->ScreenText(token));
    } else if (req.path == "/api/events") {
      nlohmann::json event;
      if (!ParseObject(req, res, &event)) return;
      Answer(res, host->EventText(token, event));
    } else {
      Answer(res, host->EndSession(token));
    }
  }

  static void Answer(httplib::Response& res, const Reply& reply) {
    if (reply.status == 401) res.set_header("WWW-Authenticate", "Bearer");
    SendJson(res, reply.status, reply.body);
  }

  // The same for a body that is JSON text already; "" is no body.
  static void Answer(httplib::Response& res, TextReply reply) {
    if (reply.status == 401) res.set_header("WWW-Authenticate", "Bearer");
    res.status = reply.status;
    if (reply.status == 204 || reply.body.empty()) {
      res.body.clear();
      return;
    }
    res.set_content("", 0, kJsonType);
    res.body = std::move(reply.body);
  }

  Host* const host;
  const HttpServerOptions options;
  std::unordered_map<std::string, const EmbeddedFile*> files;
  httplib::Server server;
  std::thread thread;
  std::atomic<bool> listening_done{false};
};

HttpServer::HttpServer(Host* host, HttpServerOptions options)
    : impl_(std::make_unique<Impl>(host, options)) {
  httplib::Server& server = impl_->server;
  Impl* impl = impl_.get();
  httplib::Server::Handler handler = [impl](const httplib::Request& req,
                                            httplib::Response& res) {
    try {
      impl->Handle(req, res);
    } catch (const std::exception& e) {
      res.headers.clear();
      if (StartsWith(req.path, kApiPrefix)) {
        res.set_header("Cache-Control", "no-store");
      }
      SendError(res, 500, e.what());
    }
  };
  server.Get(".*", handler);
  server.Post(".*", handler);
  server.Put(".*", handler);
  server.Patch(".*", handler);
  server.Delete(".*", handler);
  server.Options(".*", handler);
  httplib::Server::HandlerWithResponse on_error =
      [](const httplib::Request& req, httplib::Response& res) {
        if (!res.body.empty()) return httplib::Server::HandlerResponse::Unhandled;
        if (StartsWith(req.path, kApiPrefix)) {
          res.set_header("Cache-Control", "no-store");
        }
        SendError(res, res.status, ReasonOf(res.status));
        return httplib::Server::HandlerResponse::Handled;
      };
  server.set_error_handler(on_error);
  // SO_REUSEADDR only: cpp-httplib's default adds SO_REUSEPORT, which would
  // let a second server share the port and take half of the requests of
  // sessions that it does not know.
  server.set_socket_options([](socket_t sock) {
    int yes = 1;
    setsockopt(sock, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes));
  });
  // Answers are small and a person waits on each: send them at once.
  server.set_tcp_nodelay(true);
  server.set_payload_max_length(options.max_body_bytes);
  server.set_keep_alive_timeout(options.keep_alive_seconds);
  server.set_keep_alive_max_count(options.keep_alive_max_requests);
}

HttpServer::~HttpServer() { Stop(); }

bool HttpServer::Start(const std::string& listen, std::string* error) {
  std::string host;
  int port = 0;
  if (!ParseListenAddress(listen, &host, &port)) {
    *error = "not an address HOST:PORT: " + listen;
    return false;
  }
  httplib::Server& server = impl_->server;
  if (port == 0) {
    port = server.bind_to_any_port(host);
    if (port < 0) {
      *error = "cannot listen on " + listen;
      return false;
    }
  } else if (!server.bind_to_port(host, port)) {
    *error = "cannot listen on " + listen;
    return false;
  }
  host_ = host;
  port_ = port;
  Impl* impl = impl_.get();
  impl->listening_done = false;
  impl->thread = std::thread([impl] {
    impl->server.listen_after_bind();
    impl->listening_done = true;
  });
  // Stop() can only stop a server that has started its loop.
  while (!server.is_running() && !impl->listening_done) {
    std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
  return true;
}

void HttpServer::Stop() {
  if (!impl_ || !impl_->thread.joinable()) return;
  impl_->server.stop();
  impl_->thread.join();
}

bool ParseListenAddress(const std::string& listen, std::string* host,
                        int* port) {
  std::size_t colon = listen.rfind(':');
  if (colon == std::string::npos) return false;
  std::string h = listen.substr(0, colon);
  std::string p = listen.substr(colon + 1);
  if (h.size() >= 2 && h.front() == '[' && h.back() == ']') {
    h = h.substr(1, h.size() - 2);
  } else if (h.find_first_of(":[]") != std::string::npos) {
    return false;
  }
  if (h.empty() || p.empty() || p.size() > 5) return false;
  int value = 0;
  for (char c : p) {
    if (c < '0' || c > '9') return false;
    value = value * 10 + (c - '0');
  }
  if (value > 65535) return false;
  *host = h;
  *port = value;
  return true;
}

}  // namespace watrix
