// Tables that libraries write, where the disk takes no more.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include "tests/report/written_table.h"

namespace korv {
namespace {

/// While it lives, no file grows beyond so many bytes: a write fails as on a full disk.
class SmallFiles {
 public:
  explicit SmallFiles(rlim_t bytes) {
    before_ = ::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &limit_);
    const rlimit small{bytes, limit_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallFiles() {
    ::setrlimit(RLIMIT_FSIZE, &limit_);
    ::signal(SIGXFSZ, before_);
  }
  SmallFiles(const SmallFiles&) = delete;
  SmallFiles& operator=(const SmallFiles&) = delete;

 private:
  rlimit limit_{};
  void (*before_)(int);
};

struct Attempt {
  bool Done = false;
  std::optional<FileError> Fault;
  std::string Text;
};

Attempt Write(const TableForm& form, FileSystem& files) {
  StringSink sink;
  sink.Piece = 1 << 20;
  const auto writer = form.Make(sink, {.Created = "2026-11-22T09:30:00Z"}, &files);
  const PhraseTable table;
  const RunSummary facts;
  const Column* columns[] = {FindColumn("rank"), FindColumn("phrase"), FindColumn("mi")};
  writer->Begin(columns, ColumnSource{table, facts});
  bool taken = true;
  for (int64_t k = 0; k < 800 && taken; ++k) {
    const std::string text = "the phrase " + std::to_string(k * 7919);
    const Cell cells[] = {k, std::string_view(text), static_cast<double>(k) / 3};
    taken = writer->Row({cells, {}});
  }
  const bool done = taken && writer->End(false);
  return {done, writer->Fault(), sink.Text};
}

TEST(OnAFullDisk, ATableIsWrittenWholeOrRefused) {
  const auto files = MakeSystemFiles();
  for (const TableForm& form : TableForms()) {
    if (!form.Binary || form.Make == nullptr) continue;
    const Attempt whole = Write(form, *files);
    ASSERT_TRUE(whole.Done) << form.Name;
    int refused = 0;
    int written = 0;
    for (rlim_t bytes = 0; bytes < 150'000; bytes += bytes < 20'000 ? 509 : 4001) {
      const Attempt attempt = [&] {
        const SmallFiles small(bytes);
        return Write(form, *files);
      }();
      if (attempt.Done) {
        ++written;
        EXPECT_EQ(attempt.Text, whole.Text) << form.Name << " " << bytes;
        continue;
      }
      ++refused;
      ASSERT_TRUE(attempt.Fault) << form.Name << " " << bytes;
      EXPECT_NE(attempt.Fault->Description, "") << form.Name << " " << bytes;
      EXPECT_EQ(attempt.Text, "") << form.Name << " " << bytes;
    }
    EXPECT_GT(refused, 0) << form.Name;
    EXPECT_GT(written, 0) << form.Name;
  }
}

}  // namespace
}  // namespace korv
