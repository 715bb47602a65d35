// A fault in the middle of an event, on PostgreSQL: the event has written a
// row and waits for a TSMEISN row that another client holds when its
// connection is cut off (pg_terminate_backend). The event ends in a fatal
// stop, nothing it wrote stays, and the session goes on with a new
// connection.
#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "store/database.h"
#include "store/schema.h"
#include "store/soci.h"
#include "store/url.h"
#include "tests/pg/pg_cluster.h"
#include "tests/store_concurrency/client_session.h"

namespace watrix::testing {
namespace {

TEST(LostConnectionTest, AnEventCutOffWhileItWaitsLeavesNothingAndTheSessionGoesOn) {
  PgCluster& cluster = PgCluster::Shared();
  ASSERT_TRUE(cluster.Available()) << cluster.why_not();
  const std::string url = cluster.NewDatabase();
  ASSERT_FALSE(url.empty());
  lk::store::Dialect dialect;
  std::unique_ptr<soci::session> other = lk::store::OpenSession(url, &dialect);
  lk::store::CreateSchema(lk::store::Connection{other.get(), dialect});
  *other << "INSERT INTO TSMEISN (TSMEISN_NAME, TSMEISN_ORG_ID, IS_NUMBER, TABLE_VERSION, "
            "V_USERID_CODE, V_LAST_UPDATE_TS, D_USERID_CODE, D_LAST_UPDT_TS) VALUES "
            "('TSRLBRMK', 'ORG1', 50, NULL, NULL, NULL, 'SETUP', '2020-01-01 00:00:00')";

  ClientSession client;
  ASSERT_EQ("", client.Open(url));
  ASSERT_EQ(200, client.Click("&Backend").status);
  const std::string pid = client.Note();
  ASSERT_FALSE(pid.empty());

  // The other client holds the counter.
  *other << "BEGIN";
  double held = 0;
  *other << "SELECT IS_NUMBER FROM TSMEISN WHERE TSMEISN_NAME = 'TSRLBRMK' FOR UPDATE",
      soci::into(held);
  ASSERT_EQ(50.0, held);

  Reply reply;
  std::thread event([&] { reply = client.Click("&Write", "FAULT"); });

  // Once the event waits for the lock, cut its connection off.
  std::unique_ptr<soci::session> admin = lk::store::OpenSession(url, &dialect);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  int waiting = 0;
  while (waiting == 0 && std::chrono::steady_clock::now() < deadline) {
    *admin << "SELECT count(*) FROM pg_stat_activity WHERE pid = " + pid +
                  " AND wait_event_type = 'Lock'",
        soci::into(waiting);
    if (waiting == 0) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  ASSERT_EQ(1, waiting) << "the event never waited for the counter";
  // Its row is written, not yet committed: seen from its own backend only.
  long long written = -1;
  *admin << "SELECT count(*) FROM pg_locks l JOIN pg_class c ON c.oid = l.relation "
            "WHERE l.pid = " + pid + " AND c.relname = 'tsrlbrmk' AND l.mode = 'RowExclusiveLock'",
      soci::into(written);
  EXPECT_EQ(1, written);
  int terminated = 0;
  *admin << "SELECT CAST(pg_terminate_backend(" + pid + ") AS integer)", soci::into(terminated);
  EXPECT_EQ(1, terminated);
  event.join();
  *other << "ROLLBACK";

  // A fatal stop, at the counter's read for update.
  ASSERT_EQ(200, reply.status);
  const nlohmann::json& f = reply.body["failure"];
  ASSERT_FALSE(f.is_null()) << reply.body.dump();
  EXPECT_EQ("FE", f["status"]);
  EXPECT_EQ("DB", f["status_detail"]);
  EXPECT_EQ("DETERMINE_NEXT_IS_NUMBER", f["unit_name"]);
  EXPECT_EQ("0000000003", f["statement"]);
  EXPECT_NE(std::string::npos, f["database"].get<std::string>().find("sqlcode -2"))
      << f["database"];
  EXPECT_EQ(false, reply.body["ended"]);

  // Nothing of it stays.
  long long rows = -1;
  *admin << "SELECT count(*) FROM TSRLBRMK", soci::into(rows);
  EXPECT_EQ(0, rows);
  double counter = 0;
  *admin << "SELECT IS_NUMBER FROM TSMEISN WHERE TSMEISN_NAME = 'TSRLBRMK'", soci::into(counter);
  EXPECT_EQ(50.0, counter);

  // The session goes on, on a new connection.
  const Reply next = client.Click("&Number", "TSRLBRMK");
  ASSERT_EQ(200, next.status);
  EXPECT_TRUE(next.body["failure"].is_null()) << next.body.dump();
  EXPECT_EQ("51", client.Note());
  EXPECT_EQ(1, client.store->database()->reconnections());
  ASSERT_EQ(200, client.Click("&Backend").status);
  EXPECT_NE(pid, client.Note());
  // And what it writes now stays.
  ASSERT_EQ(200, client.Click("&Write", "AFTER").status);
  EXPECT_EQ("52", client.Note());
  *admin << "SELECT count(*) FROM TSRLBRMK WHERE SHORT_NAME = 'AFTER'", soci::into(rows);
  EXPECT_EQ(1, rows);
}

}  // namespace
}  // namespace watrix::testing
