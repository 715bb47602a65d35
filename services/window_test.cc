// Tests of the window services against a fake WindowPort.
#include "services/window.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/host_port.h"

namespace lk {
namespace {

// Records each call as "function(name)".
struct Recorder {
  std::vector<std::string> calls;
};

void Record(void* host, const std::string& function, const char* name) {
  static_cast<Recorder*>(host)->calls.push_back(function + "(" + name + ")");
}

WindowPort FakePort(Recorder* recorder) {
  WindowPort port{};
  port.host = recorder;
  port.window_open = [](void* h, const char* n) { Record(h, "window_open", n); };
  port.window_close = [](void* h, const char* n) { Record(h, "window_close", n); };
  port.control_enable = [](void* h, const char* n) { Record(h, "control_enable", n); };
  port.control_disable = [](void* h, const char* n) { Record(h, "control_disable", n); };
  return port;
}

TEST(WindowServicesTest, CallThePortFunctionsWithTheNames) {
  Recorder recorder;
  WindowPort port = FakePort(&recorder);
  WindowOpen(nullptr, &port, "RT30_VALID_STN_TYPE_MAINT_LIST");
  ControlEnable(nullptr, &port, "DELETE");
  ControlDisable(nullptr, &port, "CHANGE");
  WindowClose(nullptr, &port, "RT30A_DELETE_VALID_STATION_TYPE");
  const std::vector<std::string> expect = {
      "window_open(RT30_VALID_STN_TYPE_MAINT_LIST)",
      "control_enable(DELETE)",
      "control_disable(CHANGE)",
      "window_close(RT30A_DELETE_VALID_STATION_TYPE)",
  };
  EXPECT_EQ(expect, recorder.calls);
}

TEST(WindowServicesTest, MissingPortOrFunctionDoesNothing) {
  WindowOpen(nullptr, nullptr, "X");
  ControlEnable(nullptr, nullptr, "X");
  Recorder recorder;
  WindowPort port = FakePort(&recorder);
  port.window_close = nullptr;
  WindowClose(nullptr, &port, "X");
  EXPECT_TRUE(recorder.calls.empty());
}

// This host has no window objects: the service leaves the cell exactly as
// the caller left it and asks the host for nothing. The cell starts with a
// value no service would write, so that any write to it shows.
TEST(WindowServicesTest, WindowObjectLeavesTheCellAlone) {
  Recorder recorder;
  WindowPort port = FakePort(&recorder);
  int marker = 0;
  void* const kUntouched = &marker;
  for (HandleB b : {static_cast<HandleB>(&port), static_cast<HandleB>(nullptr)}) {
    SCOPED_TRACE(b == nullptr ? "without a port" : "with a port");
    void* cell = kUntouched;
    WindowObject(&cell, b);
    EXPECT_EQ(kUntouched, cell);
  }
  // The one caller asks only while the cell is empty; it stays empty.
  void* cell = nullptr;
  WindowObject(&cell, &port);
  EXPECT_EQ(nullptr, cell);
  EXPECT_TRUE(recorder.calls.empty());
}

// The method call changes neither its result cell nor its arguments, so the
// window keeps its design height.
TEST(WindowServicesTest, ObjectInvokeChangesNothing) {
  Recorder recorder;
  WindowPort port = FakePort(&recorder);
  void* object = nullptr;
  WindowObject(&object, &port);
  unsigned char result[16];
  std::memset(result, 0xA5, sizeof result);
  std::int32_t arguments[2] = {0, 450};
  ObjectInvoke(result, object, "SetHeight", 2, arguments, 1);
  for (unsigned char byte : result) EXPECT_EQ(0xA5, byte);
  EXPECT_EQ(0, arguments[0]);
  EXPECT_EQ(450, arguments[1]);
  EXPECT_TRUE(recorder.calls.empty());
}

}  // namespace
}  // namespace lk
