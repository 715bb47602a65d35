// The maintenance buttons that a list sets itself: which keywords each step
// enables and disables, in order, through the window services.
#include "patterns/list_buttons.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/host_port.h"

namespace lk::patterns {
namespace {

std::vector<std::string> calls;
void Enable(void*, const char* keyword) { calls.push_back(std::string("enable ") + keyword); }
void Disable(void*, const char* keyword) { calls.push_back(std::string("disable ") + keyword); }
WindowPort port = {nullptr, nullptr, nullptr, Enable, Disable};

TEST(ListButtonsTest, AtOpenOnlyChangeAndDeleteGoOffAndAddStandsAsItIs) {
  calls.clear();
  ButtonsAtOpen(nullptr, &port);
  EXPECT_EQ((std::vector<std::string>{"disable CHANGE", "disable DELETE"}), calls);
}

TEST(ListButtonsTest, ARowSelectedTurnsAddOffAndTheOtherTwoOn) {
  calls.clear();
  ButtonsForRow(nullptr, &port);
  EXPECT_EQ((std::vector<std::string>{"disable ADD", "enable CHANGE", "enable DELETE"}), calls);
}

TEST(ListButtonsTest, NoRowSelectedTurnsAddOnAndTheOtherTwoOff) {
  calls.clear();
  ButtonsForNoRow(nullptr, &port);
  EXPECT_EQ((std::vector<std::string>{"enable ADD", "disable CHANGE", "disable DELETE"}), calls);
}

TEST(ListButtonsTest, WithoutAWindowPortNothingHappens) {
  calls.clear();
  ButtonsForRow(nullptr, nullptr);
  EXPECT_TRUE(calls.empty());
}

}  // namespace
}  // namespace lk::patterns
