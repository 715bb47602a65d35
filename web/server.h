// The host's HTTP interface: the JSON API under /api/ and the embedded page
// and help files, served on one port.
//
//   POST   /api/sessions  -> Host::CreateSession
//   GET    /api/screen    -> Host::Screen
//   POST   /api/events    -> Host::Event
//   DELETE /api/session   -> Host::EndSession
//   GET    /              -> the embedded /static/index.html
//   GET    /NAME          -> the embedded /static/NAME
//   GET    /help/NAME     -> the embedded /help/NAME, else /help/NAME.html,
//                            else /help/_pending.html
//
// The server reads the token of a session from "Authorization: Bearer TOKEN"
// and answers 401 itself when the header is missing; the host judges the
// token. A request body must be a JSON object of at most max_body_bytes
// (413 above, 400 when malformed). Unknown paths get 404 and a known path
// asked with the wrong method 405. Answers of /api/ are JSON in UTF-8 with
// "Cache-Control: no-store"; refusals carry {"error": "reason"}.
//
// Thread safety: Start() and Stop() are called from one thread. Requests run
// on the server's own threads and call the host concurrently; the host
// serialises them itself.
#ifndef WATRIX_WEB_SERVER_H_
#define WATRIX_WEB_SERVER_H_

#include <cstddef>
#include <memory>
#include <string>

#include "host/host.h"
#include "web/embedded.h"

namespace watrix {

struct HttpServerOptions {
  // Largest request body accepted; a larger one gets 413.
  std::size_t max_body_bytes = 256 * 1024;
  // The files served outside /api/, a table as described in web/embedded.h.
  const EmbeddedFile* files = kWebFiles;
  // How long an idle kept-alive connection stays open, and how many
  // requests one connection may carry. Stop() may wait for the timeout.
  int keep_alive_seconds = 2;
  int keep_alive_max_requests = 1000;
};

class HttpServer {
 public:
  // REQUIRES: host outlives the server.
  explicit HttpServer(Host* host, HttpServerOptions options = {});
  ~HttpServer();  // Stops the server.

  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  // Binds to `listen`, "HOST:PORT" ("127.0.0.1:8080", "[::1]:8080"), and
  // serves on background threads until Stop(). Port 0 takes a free port;
  // port() then tells which. Returns false with a reason in *error when the
  // address is malformed or cannot be bound.
  // REQUIRES: not started yet.
  bool Start(const std::string& listen, std::string* error);

  // Stops accepting, finishes the requests under way and joins the server's
  // threads. Safe to call more than once, or without Start().
  void Stop();

  // The address bound by Start(): host as given, port as bound.
  const std::string& host() const { return host_; }
  int port() const { return port_; }

 private:
  struct Impl;

  std::unique_ptr<Impl> impl_;
  std::string host_;
  int port_ = 0;
};

// Splits "HOST:PORT" into its parts. Brackets around an IPv6 host are
// removed. Returns false when the text has no host, no port, or a port that
// is not a number from 0 to 65535.
bool ParseListenAddress(const std::string& listen, std::string* host,
                        int* port);

}  // namespace watrix

#endif  // WATRIX_WEB_SERVER_H_
