// The SCREEN of liblkbase.so's windows as the host builds it: the texts of a
// window go out exactly as its dialog template has them, trailing blanks
// included. Driven through a session on an empty SQLite database, from the
// menu to the lab remark list RT50 and its data entry window RT51, and to
// the permitted value dialog RT3D with its check boxes.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "host/modules.h"
#include "host/screen_testing.h"
#include "host/session.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/store_port.h"

namespace watrix {
namespace {

using nlohmann::json;

constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kList[] = "RT50_LAB_REMARK_MAINT_LIST";
constexpr char kEntry[] = "RT51_LAB_REMARK_DATA_ENTRY";

Modules* TheModules() {
  static Modules* modules = new Modules(
      std::getenv("WATRIX_BUILD") != nullptr ? std::getenv("WATRIX_BUILD") : ".", "LKBASE");
  return modules;
}

class ScreenTextTest : public ::testing::Test {
 protected:
  void SetUp() override {
    char folder[] = "/tmp/watrix-screen-test-XXXXXX";
    ASSERT_NE(nullptr, mkdtemp(folder));
    folder_ = folder;
    std::string error;
    std::unique_ptr<lk::store::Database> db =
        lk::store::Database::Open("sqlite:" + folder_ + "/watrix.db", &error);
    ASSERT_NE(nullptr, db) << error;
    lk::store::CreateSchema(*db->connection());
    session_ = std::make_unique<Session>(
        TheModules(), std::make_unique<lk::store::SociStore>(std::move(db)), SystemClock());
    ASSERT_EQ("", session_->Start("JSMITH", "ZZZZZZZZ", StartRequest{}));
  }
  void TearDown() override {
    session_.reset();
    if (!folder_.empty()) std::filesystem::remove_all(folder_);
  }

  void Click(const std::string& window, const json& control) {
    const Reply r =
        session_->Event({{"window", window}, {"control", control}, {"event", "Click"}});
    ASSERT_EQ(200, r.status) << r.body.dump();
    ASSERT_TRUE(r.body["failure"].is_null()) << r.body["failure"].dump();
    ASSERT_EQ("", testing::MessageText(r.body));
  }

  // The window on top of the SCREEN, which must be `name`.
  json Top(const std::string& name) {
    const json screen = session_->Screen();
    EXPECT_FALSE(screen["windows"].empty());
    if (screen["windows"].empty()) return json::object();
    const json& w = screen["windows"].back();
    EXPECT_EQ(name, w["name"]);
    return w;
  }

  // The control of `window` whose `key` is `value`; null if none.
  static json Find(const json& window, const char* key, const json& value) {
    for (const auto& c : window["controls"])
      if (c[key] == value) return c;
    ADD_FAILURE() << "no control with " << key << " " << value.dump();
    return nullptr;
  }

  std::string folder_;
  std::unique_ptr<Session> session_;
};

TEST_F(ScreenTextTest, ListHeadingsKeepTheirTrailingBlank) {
  Click(kMenu, "Lab &Remark");
  const json w = Top(kList);
  EXPECT_EQ("RT50 Lab Remark Maintenance List", w["title"]);
  const json list = Find(w, "type", "list");
  ASSERT_TRUE(list.is_object());
  ASSERT_EQ(2u, list["columns"].size());
  EXPECT_EQ("Short Name", list["columns"][0]["heading"]);
  EXPECT_EQ("Description ", list["columns"][1]["heading"]);
  EXPECT_EQ("DESCRIPTION_TEXT", list["columns"][1]["attribute"]);
  // The heading static itself, as the template has it.
  EXPECT_EQ("Description ", Find(w, "id", 368)["label"]);
  EXPECT_EQ("C&lose", Find(w, "id", 374)["label"]);
}

TEST_F(ScreenTextTest, FieldLabelsKeepTheirTrailingBlank) {
  Click(kMenu, "Lab &Remark");
  Click(kList, "&Add");
  const json w = Top(kEntry);
  EXPECT_EQ("RT51 Lab Remark Data Entry", w["title"]);
  EXPECT_EQ("Description ", Find(w, "attribute", "DESCRIPTION_TEXT")["label"]);
  EXPECT_EQ("Short Name", Find(w, "attribute", "SHORT_NAME")["label"]);
  EXPECT_EQ("Accep&t", Find(w, "id", 1003)["label"]);
}

TEST_F(ScreenTextTest, CheckBoxesWithoutAStaticShowTheirOwnText) {
  Click(kMenu, "Permitted &Value");
  // The first row of a table and field is written after the warning that
  // the names are new; the second opens RT3D, whose check boxes have no
  // static of their own.
  const json first = {{"TABLE_NAME", "TSRFDACT"},
                      {"FIELD_NAME", "CATEGORY_TYPE_NAME"},
                      {"FIELD_VALUE", "First"},
                      {"SEQUENCE_NUMBER", "1"}};
  json second = first;
  second["FIELD_VALUE"] = "Second";
  second["SEQUENCE_NUMBER"] = "2";
  Click("RT2_PERMITTED_VALUE_MAINT_LIST", "&Add");
  Reply r = session_->Event({{"window", "RT3_PERMITTED_VALUE_DATA_ENTRY"},
                             {"control", "Accep&t"},
                             {"event", "Click"},
                             {"values", first}});
  ASSERT_EQ(200, r.status) << r.body.dump();
  Click("RT3B_TABLE_NAME_WARNING", "&Yes");
  const json list = Top("RT2_PERMITTED_VALUE_MAINT_LIST");
  const json lb = Find(list, "type", "list");
  ASSERT_TRUE(lb.is_object());
  ASSERT_EQ(1u, lb["rows"].size());
  // The new row stands selected; a click on it lets it go and offers Add.
  ASSERT_EQ(true, lb["rows"][0]["selected"]);
  r = session_->Event({{"window", "RT2_PERMITTED_VALUE_MAINT_LIST"},
                       {"control", lb["id"]},
                       {"event", "Click"},
                       {"row", 1}});
  ASSERT_EQ(200, r.status) << r.body.dump();
  Click("RT2_PERMITTED_VALUE_MAINT_LIST", "&Add");
  r = session_->Event({{"window", "RT3_PERMITTED_VALUE_DATA_ENTRY"},
                       {"control", "Accep&t"},
                       {"event", "Click"},
                       {"values", second}});
  ASSERT_EQ(200, r.status) << r.body.dump();
  const json w = Top("RT3D_NEW_ACTIVITY_CATEGORY");
  EXPECT_EQ("Measurement/Observation", Find(w, "name", "FLAG1")["label"]);
  EXPECT_EQ("Sample", Find(w, "name", "FLAG2")["label"]);
  EXPECT_EQ("check", Find(w, "name", "FLAG2")["type"]);
}

// The SCREEN's text is written as it is sent, without a json tree; it must
// be what a dump of its json writes, keys in sorted order, byte for byte.
TEST_F(ScreenTextTest, TheTextIsTheDumpOfItsJson) {
  auto same = [this](const char* where) {
    const std::string text = session_->ScreenText();
    EXPECT_EQ(json::parse(text).dump(-1, ' ', false, json::error_handler_t::replace), text)
        << where;
  };
  same("menu");
  Click(kMenu, "Lab &Remark");
  same("lab remark list");
  Click(kList, "&Add");
  same("lab remark entry");
  const TextReply r = session_->EventText(
      {{"window", kEntry}, {"control", "Accep&t"}, {"event", "Click"},
       {"values", {{"SHORT_NAME", "\xC2\xB5"}, {"DESCRIPTION_TEXT", "Micro \"\xC2\xB5\" \\ sign"}}}});
  ASSERT_EQ(200, r.status) << r.body;
  EXPECT_EQ(session_->ScreenText(), r.body);
  same("after the new remark");
  const TextReply refused = session_->EventText({{"window", "NO_SUCH_WINDOW"}});
  EXPECT_EQ(400, refused.status);
  EXPECT_EQ(json({{"error", "event needs \"control\""}}).dump(), refused.body);
}

}  // namespace
}  // namespace watrix
