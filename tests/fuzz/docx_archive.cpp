// Any bytes as a .docx: a size within the limit or a fault, nothing left behind, the file as it was.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "sources/read/docx.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  korv::FakeFiles files;
  korv::FakeMessages messages;
  korv::NoYielder yielder;
  const std::string content(reinterpret_cast<const char*>(data), size);
  files.Add("/in/x.docx", content);
  std::string text;
  const korv::Expected<int32_t, korv::DocxFault> result =
      korv::ReadDocx({files, messages, yielder}, "/in/x.docx", nullptr, "Korv", true, text);
  if (result ? *result < 0 || *result > korv::kMostDocxBytes
             : !text.empty() || result.Error() == korv::kDocxNoTemporaryFolder)
    std::abort();
  if (!files.TemporaryIsClean() || files.Content("/in/x.docx") != content) std::abort();
  return 0;
}
