// The Host as the HTTP interface calls it, over the real liblkbase.so:
// sessions by token, and the identity and start of a session checked before
// one is made.
#include <cstdlib>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "host/host.h"

namespace watrix {
namespace {

std::string BuildFolder() {
  const char* b = std::getenv("WATRIX_BUILD");
  return b != nullptr ? b : ".";
}

TEST(HostTest, SessionsByTokenAndIdentityChecks) {
  HostOptions options;
  options.module_dir = BuildFolder();
  std::unique_ptr<Host> host = MakeHost(options);
  const Reply created = host->CreateSession({{"user", "JSMITH"}, {"org", "ZZZZZZZZ"}});
  ASSERT_EQ(201, created.status) << created.body.dump();
  const std::string token = created.body["session"];
  EXPECT_GE(token.size(), 32u);
  EXPECT_EQ("RT1_REFERENCE_TABLE_MAINT_MENU", created.body["screen"]["windows"][0]["name"]);
  EXPECT_EQ(200, host->Screen(token).status);
  EXPECT_EQ(401, host->Screen("not-a-token").status);
  EXPECT_EQ(401, host->Event("", {{"window", "x"}}).status);

  struct Bad {
    nlohmann::json request;
  } bad[] = {
      {{{"user", "TOOLONGUSER"}, {"org", "ZZZZZZZZ"}}},
      {{{"user", ""}, {"org", "ZZZZZZZZ"}}},
      {{{"user", "JSMITH"}}},
      {{{"user", "J\xE4\xB8\xAD"}, {"org", "ZZZZZZZZ"}}},
      {{{"user", "JSMITH"}, {"org", "ZZZZZZZZ"}, {"start", {{"procedure", "RT99_NONE"}}}}},
      {{{"user", "JSMITH"}, {"org", "ZZZZZZZZ"},
        {"start", {{"procedure", "RT36_FIPS_HUC_MAINT_LIST"}}}}},
  };
  for (const Bad& b : bad) {
    SCOPED_TRACE(b.request.dump());
    const Reply r = host->CreateSession(b.request);
    EXPECT_EQ(400, r.status);
    EXPECT_TRUE(r.body.contains("error"));
  }
  const Reply other = host->CreateSession({{"user", "OTHER"}, {"org", "ORG2"}});
  ASSERT_EQ(201, other.status);
  EXPECT_NE(token, other.body["session"]);
  EXPECT_EQ(204, host->EndSession(token).status);
  EXPECT_EQ(401, host->Screen(token).status);
  EXPECT_EQ(200, host->Screen(other.body["session"]).status);
}

}  // namespace
}  // namespace watrix
