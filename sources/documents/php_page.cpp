#include "sources/documents/php_page.h"

#include <algorithm>
#include <cctype>

namespace korv {

namespace {

/// Where a program that begins before `at` ends: past its "?>", which counts in comments of a line but not in
/// texts and other comments.
size_t PastProgram(std::string_view php, size_t at) {
  while (at < php.size()) {
    const std::string_view rest = php.substr(at);
    if (rest.starts_with("?>")) return at + 2;
    if (rest.starts_with("/*")) {
      const size_t end = php.find("*/", at + 2);
      if (end == std::string_view::npos) return php.size();
      at = end + 2;
    } else if (rest.starts_with("//") || rest[0] == '#') {
      const size_t line = std::min(php.find('\n', at), php.size());
      at = std::min(php.find("?>", at), line);
    } else if (rest[0] == '\'' || rest[0] == '"' || rest[0] == '`') {
      size_t end = at + 1;
      while (end < php.size() && php[end] != rest[0]) end += php[end] == '\\' ? 2 : 1;
      at = std::min(end + 1, php.size());
    } else {
      ++at;
    }
  }
  return php.size();
}

}  // namespace

std::string WithoutPrograms(std::string_view php) {
  std::string page(php);
  for (size_t begin = page.find("<?"); begin != page.npos; begin = page.find("<?", begin)) {
    // Such as "<?xml": read as a program only where short tags are on, which they rarely are.
    const std::string_view rest = php.substr(begin + 2);
    if (!rest.starts_with("=") && !rest.starts_with("php") && !rest.starts_with("PHP") &&
        (rest.empty() || !std::isspace(static_cast<unsigned char>(rest[0])))) {
      begin += 2;
      continue;
    }
    const size_t end = PastProgram(php, begin + 2);
    for (; begin < end; ++begin)
      if (page[begin] != '\n' && page[begin] != '\r') page[begin] = ' ';
  }
  return page;
}

}  // namespace korv
