// Tests of the window services against a fake WindowPort.
#include "services/window.h"

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

TEST(WindowServicesTest, WindowObjectLeavesTheCellEmpty) {
  void* cell = nullptr;
  WindowObject(&cell, nullptr);
  EXPECT_EQ(nullptr, cell);
  const int arguments[2] = {0, 450};
  ObjectInvoke(nullptr, cell, "SetHeight", 2, arguments, 1);
}

}  // namespace
}  // namespace lk
