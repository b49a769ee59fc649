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
/// words; one among other elements is a block, and so is a note; the only one in an element is what that is.
/// What a header of TEI, a script or a style sheet holds is left out; "lb" and "br" end a line unless they
/// say that they break no word.
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
    uint32_t Parent;  ///< kBlockEnd: parts blocks whatever there is. kLineBreak: parts lines alone.
  };
  struct LineBegin {
    size_t Offset;
    uint32_t Line;
  };
  static constexpr uint32_t kLineBreak = 0xFFFFFFFF;
  static constexpr uint32_t kBlockEnd = 0xFFFFFFFE;

  /// An element, by its number.
  struct Element {
    uint32_t Parent = 0;
    bool HasText = false;  ///< There is text right within it.
    uint32_t Children = 0;
  };

  void AddEdge(bool isBlock);
  bool PartsBlocks(const Edge& edge) const;

  std::string text_;
  std::vector<Edge> edges_;
  std::vector<LineBegin> lines_;
  std::vector<Element> elements_{{}};  ///< The document first.
  std::vector<uint32_t> open_{0};      ///< Numbers of those that are open.
  size_t passedOver_ = 0;              ///< Elements open from one on that is passed over.
};

}  // namespace korv
