// Any bytes as a file packed by gzip, bzip2, xz or zstd.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "sources/read/document_readers.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  korv::FakeFiles files;
  korv::FakeMessages messages;
  korv::NoYielder yielder;
  files.Add("/in/a.txt.gz", std::string(reinterpret_cast<const char*>(data), size));
  korv::OpenedText opened = korv::OpenTextSource(files, "/in/a.txt.gz", korv::kRunThreshold);
  const korv::DocumentReader& reader = korv::ReaderOfFile("/in/a.txt.gz", opened.Head, {}, /*others=*/true);
  const auto text =
      reader.Open("/in/a.txt.gz", std::move(opened),
                  {files,
                   messages,
                   yielder,
                   true,
                   {},
                   {},
                   {.Others = true, .Segments = {}, .OnlyElements = {}, .SkippedElements = {}}});
  if (!text && text.Error().SkipReason.empty()) std::abort();
  if (!messages.Shown.empty()) std::abort();
  return 0;
}
