#pragma once

#include <gumbo.h>

#include <csetjmp>
#include <cstddef>
#include <string_view>

#include "base/yielder.h"

namespace korv {

/// The tree of a page, with a limit on the memory that it takes. Tags that are never closed would make it
/// grow with the square of the page; and trees are freed without recursion, however deep they are.
class HtmlTree {
 public:
  /// `page`, UTF-8, must outlive the object. Without a root where the tree takes more than `mostBytes`, and
  /// after a stop.
  HtmlTree(std::string_view page, size_t mostBytes, Yielder& yielder);
  ~HtmlTree();
  HtmlTree(const HtmlTree&) = delete;
  HtmlTree& operator=(const HtmlTree&) = delete;

  /// The document, or null.
  const GumboNode* Document() const { return output_ == nullptr ? nullptr : output_->document; }

 private:
  struct Block;

  static void* Allocate(void* tree, size_t size);
  static void Free(void* tree, void* memory);
  void Parse(std::string_view page);

  Block* blocks_ = nullptr;
  size_t left_;
  Yielder& yielder_;
  std::jmp_buf full_;
  GumboOutput* output_ = nullptr;
};

}  // namespace korv
