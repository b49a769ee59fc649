// Any bytes as the main part of a document: the text is that of the naive model, every line end of it is
// CR LF, and every character of it comes from the document or stands for an element of it. The same bytes
// as relationships: a main part that they name lies inside the archive.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "sources/read/docx.h"
#include "sources/read/docx_main_part.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/reference/naive_docx.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  korv::FakeFiles files;
  korv::FakeMessages messages;
  korv::NoYielder yielder;
  constexpr size_t kEnough = 4096;  // The model is quadratic.
  if (size > kEnough) return 0;
  const std::string xml(reinterpret_cast<const char*>(data), size);
  const std::string text = korv::DocxXmlToText(xml, {files, messages, yielder});
  if (text != korv::reference::DocxText(xml)) std::abort();
  if (text.size() > 2 * size || !messages.Shown.empty()) std::abort();
  for (size_t k = 0; k < text.size(); ++k) {
    if (text[k] == '\n' && (k == 0 || text[k - 1] != '\r')) std::abort();
    if (text[k] == '\r' && (k + 1 == text.size() || text[k + 1] != '\n')) std::abort();
  }
  const auto part = korv::MainPartOf(xml);
  const std::string steps = "/" + part.value_or("x") + "/";
  for (const char* step : {"//", "/./", "/../"})
    if (steps.find(step) != std::string::npos) std::abort();
  return 0;
}
