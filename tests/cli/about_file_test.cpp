// The file that a message is about.

#include "cli/about_file.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_messages.h"

namespace korv {
namespace {

TEST(AboutFile, AddsThePathWhereTheMessageDoesNotNameIt) {
  struct Case {
    const char* Name;
    const char* Text;
    const char* Addition;
    const char* Path;
    const char* Added;
  };
  const Case cases[] = {
      {"a text without it", "It cannot be opened.", "", "a.txt", "File: a.txt"},
      {"below what is added already", "It is refused.", "Unpack it.", "a.txt", "Unpack it.\nFile: a.txt"},
      {"a text that begins with it", "a.txt is refused.", "", "a.txt", ""},
      {"one that ends with it", "There is no a.txt", "", "a.txt", ""},
      {"before a full stop", "There is no a.txt.", "", "a.txt", ""},
      {"on a line of its own", "File a.txt\nis an RTF file.", "", "a.txt", ""},
      {"quoted", "There is no 'a.txt'", "", "a.txt", ""},
      {"quoted as other languages do", "„a.txt“ gibt es nicht.", "", "a.txt", ""},
      {"before the full stop of another language", "没有 a.txt。", "", "a.txt", ""},
      {"named below the text", "It is refused.", "File: a.txt", "a.txt", "File: a.txt"},
      {"a short name within a word", "Is a directory", "", "d", "File: d"},
      {"within a word of another language", "Der Pfäd fehlt", "", "d", "File: d"},
      {"the beginning of another name", "There is no a.txt", "", "a", "File: a"},
      {"after such a word", "Found d.", "", "d", ""},
      {"no path", "It is refused.", "", "", ""},
  };
  for (const Case& c : cases) {
    FakeMessages messages;
    AboutFile about(messages, c.Path);
    about.Show({.Text = c.Text, .Title = "Error", .Addition = c.Addition});
    EXPECT_EQ(messages.Only().Text, c.Text) << c.Name;
    EXPECT_EQ(messages.Only().Addition, c.Added) << c.Name;
  }
}

TEST(AboutFile, SaysWhatThePathIs) {
  FakeMessages messages;
  AboutFile about(messages, "texts", "Folder");
  about.Show({.Text = "Folder contains no files.", .Title = "Nothing to do"});
  EXPECT_EQ(messages.Only().Addition, "Folder: texts");
}

}  // namespace
}  // namespace korv
