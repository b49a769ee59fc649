#include "report/writers/table_file.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_files.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

TEST(TableFile, IsAloneInAFolderAndGoesWithIt) {
  FakeFiles files;
  {
    const TableFile file(files);
    EXPECT_FALSE(file.Fault());
    EXPECT_TRUE(files.FileExists(file.Path()));
    EXPECT_EQ(file.Path().parent_path(), file.Folder());
  }
  EXPECT_TRUE(files.TemporaryIsClean());
}

TEST(TableFile, IsHandedOverWhole) {
  FakeFiles files;
  TableFile file(files);
  std::string content;
  for (int k = 0; k < 100'000; ++k) content += std::to_string(k);
  files.Add(file.Path(), content);
  StringSink sink;
  EXPECT_TRUE(file.HandOver(sink));
  EXPECT_EQ(sink.Text, content);
  StringSink full;
  full.Takes = 0;
  EXPECT_FALSE(file.HandOver(full));
  EXPECT_FALSE(file.Fault()) << "a sink that is full is no fault of the file";
}

TEST(TableFile, KeepsItsFaultAndCleansUpAfterAny) {
  int faults = 0;
  for (int call = 1;; ++call) {
    FakeFiles files;
    files.FailCall(call, FileFault::NoSpace);
    bool handedOver = false;
    bool fault = false;
    {
      TableFile file(files);
      StringSink sink;
      handedOver = file.HandOver(sink);
      fault = file.Fault().has_value();
      if (fault) {
        EXPECT_EQ(file.Fault()->Fault, FileFault::NoSpace);
      }
    }
    EXPECT_EQ(handedOver, !fault) << call;
    if (!fault) break;
    ++faults;
    EXPECT_TRUE(files.TemporaryIsClean()) << call;
  }
  EXPECT_GE(faults, 5) << "the folder, the file, its commit, its opening, its reading";
}

}  // namespace
}  // namespace korv
