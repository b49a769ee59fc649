#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace korv {

/// Finds words by dictionaries, and by Unicode's rules (UAX #29), with the library ICU. What a text is cut
/// into depends on the text alone. Belongs to one thread.
class Segmenter {
 public:
  /// Bytes of a text.
  struct Piece {
    size_t Begin;
    size_t End;
  };

  Segmenter();
  ~Segmenter();

  /// Whether the program was built with the library. Without it nothing else may be called.
  static bool IsThere();

  /// The words of `text`, well-formed UTF-8, in order; what is no word is left out. `pieces` is overwritten.
  /// Linear but for what a dictionary costs, some 20 MB a second.
  void Cut(std::string_view text, std::vector<Piece>& pieces);

 private:
  struct Iterator;
  std::unique_ptr<Iterator> iterator_;  ///< Made when it is first needed.
};

}  // namespace korv
