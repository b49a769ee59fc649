#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/zip.h"
#include "report/writers/table_forms.h"
#include "tests/fakes/fake_files.h"
#include "tests/report/written_table.h"

namespace korv {

/// A member of an archive; empty where there is none.
inline std::string MemberOf(const std::string& archive, const std::string& name) {
  FakeFiles files;
  files.Add("/archive", archive);
  auto opened = OpenZipArchive(std::move(*files.OpenForReading("/archive")));
  if (!opened) {
    ADD_FAILURE() << opened.Error().Description;
    return {};
  }
  auto member = opened->Open(name);
  if (!member) return {};
  std::string content;
  char piece[4096];
  for (;;) {
    const auto got = member->Read(piece);
    if (!got) {
      ADD_FAILURE() << got.Error().Description;
      return {};
    }
    if (*got == 0) return content;
    content.append(piece, *got);
  }
}

/// That a table whose file cannot be written is refused for this reason, and nothing of it goes to the sink.
inline void ExpectFault(const TableForm& form, FileSystem& files, FileFault fault) {
  StringSink sink;
  const auto writer = form.Make(sink, {}, &files);
  const PhraseTable table;
  const RunSummary facts;
  const Column* columns[] = {FindColumn("rank")};
  writer->Begin(columns, ColumnSource{table, facts});
  const Cell cells[] = {int64_t{1}};
  writer->Row({cells, {}});
  EXPECT_FALSE(writer->End(false));
  ASSERT_TRUE(writer->Fault()) << form.Name;
  EXPECT_EQ(writer->Fault()->Fault, fault) << writer->Fault()->Description;
  EXPECT_NE(writer->Fault()->Description, "");
  EXPECT_EQ(sink.Text, "");
}

}  // namespace korv
