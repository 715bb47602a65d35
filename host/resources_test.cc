// The resource text format.
#include "host/resources.h"

#include <gtest/gtest.h>

namespace watrix {
namespace {

TEST(ResourcesTest, ParsesDialogsAndStrings) {
  const char* text =
      "# comment\n"
      "dialog 10 \"A \\\"quoted\\\" title\" 316 200 style 0x02C40001\n"
      "  static 11 \"Label\" 7 7 40 8 center\n"
      "  button 12 \"Accep&t\" 7 20 50 14 default\n"
      "  edit 13 70 7 60 12\n"
      "  static 14 \"Short Name\" 7 40 50 7 attribute SHORT_NAME\n"
      "end\n"
      "strings\n"
      "  1 \"Field does not contain permitted value; Please retry; Use Help for field "
      "information.\"\n"
      "end\n";
  Resources r;
  std::string error;
  ASSERT_TRUE(ParseResources(text, &r, &error)) << error;
  const Dialog* d = r.FindDialog(10);
  ASSERT_NE(nullptr, d);
  EXPECT_EQ("A \"quoted\" title", d->title);
  EXPECT_EQ(316, d->width);
  EXPECT_EQ(0x02C40001u, d->style);
  ASSERT_EQ(4u, d->controls.size());
  EXPECT_EQ("SHORT_NAME", d->Find(14)->attribute);
  EXPECT_EQ("", d->Find(11)->attribute);
  EXPECT_TRUE(d->Find(11)->center);
  EXPECT_TRUE(d->Find(12)->is_default);
  EXPECT_EQ("", d->Find(13)->text);
  EXPECT_EQ(60, d->Find(13)->w);
  EXPECT_EQ("Field does not contain permitted value; Please retry; Use Help for field information.",
            r.strings[1]);
}

TEST(ResourcesTest, TextsKeepEveryBlank) {
  const char* text =
      "dialog 20 \" Title  with blanks \" 100 50 style 0\n"
      "  static 21 \"Description \" 7 7 40 8 attribute DESCRIPTION_TEXT\n"
      "  static 22 \"Two  blanks\" 7 20 40 8\n"
      "  button 23 \"  \" 7 30 50 14\n"
      "end\n"
      "strings\n"
      "  3 \" Help\"\n"
      "  4 \"An error.  Contact us.  \"\n"
      "end\n";
  Resources r;
  std::string error;
  ASSERT_TRUE(ParseResources(text, &r, &error)) << error;
  const Dialog* d = r.FindDialog(20);
  ASSERT_NE(nullptr, d);
  EXPECT_EQ(" Title  with blanks ", d->title);
  EXPECT_EQ("Description ", d->Find(21)->text);
  EXPECT_EQ("DESCRIPTION_TEXT", d->Find(21)->attribute);
  EXPECT_EQ("Two  blanks", d->Find(22)->text);
  EXPECT_EQ("  ", d->Find(23)->text);
  EXPECT_EQ(" Help", r.strings[3]);
  EXPECT_EQ("An error.  Contact us.  ", r.strings[4]);
}

TEST(ResourcesTest, RefusesBrokenTextNamingTheLine) {
  struct Case {
    const char* text;
    const char* line;
  } cases[] = {
      {"dialog 1 \"x\" 1 2 style 3\n  widget 2 1 1 1 1\nend\n", "line 2"},
      {"dialog 1 \"x\" 1 2 style 3\n", "missing end"},
      {"dialog 1 \"x\n", "line 1"},
      {"strings\n 1 nope\nend\n", "line 2"},
      {"dialog 1 \"x\" 1 2 style 3\n static 2 \"h\" 1 1 1 1 attribute\nend\n", "line 2"},
      {"dialog 1 \"x\" 1 2 style 3\n button 2 \"a\" 1 1 1 1\n button 2 \"b\" 1 1 1 1\nend\n",
       "line 3"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    Resources r;
    std::string error;
    EXPECT_FALSE(ParseResources(c.text, &r, &error));
    EXPECT_NE(std::string::npos, error.find(c.line)) << error;
  }
}

}  // namespace
}  // namespace watrix
