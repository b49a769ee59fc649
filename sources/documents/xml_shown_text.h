#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sources/documents/shown_text.h"
#include "sources/documents/xml_walker.h"

namespace korv {

/// Takes the text out of any XML as a reader sees it. An element among text stands in its line and parts no
/// words; one among elements is a block. What a header of TEI, a script or a style sheet holds is left out;
/// "lb" and "br" end a line unless they say that they break no word.
class XmlShownText final : public XmlHandler {
 public:
  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view name) override;
  void Characters(std::string_view text, uint64_t line) override;
  size_t TextBytes() const override { return text_.size(); }
  /// The document is at its end.
  ShownText Take();

 private:
  /// Where an element begins or ends, which parts blocks unless there is text right within its parent.
  struct Edge {
    size_t Offset;
    uint32_t Parent;  ///< kLineBreak: a line ends here, but no block.
  };
  struct LineBegin {
    size_t Offset;
    uint32_t Line;
  };
  static constexpr uint32_t kLineBreak = 0xFFFFFFFF;

  void AddEdge();

  std::string text_;
  std::vector<Edge> edges_;
  std::vector<LineBegin> lines_;
  std::vector<uint32_t> open_{0};     ///< Numbers of the elements that are open, the document first.
  std::vector<bool> hasText_{false};  ///< By number: whether there is text right within it.
  size_t passedOver_ = 0;             ///< Elements open from one on that is passed over.
};

}  // namespace korv
