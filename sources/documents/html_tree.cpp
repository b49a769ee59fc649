#include "sources/documents/html_tree.h"

#include <cstdlib>

namespace korv {

/// Stands before the memory that the parser gets.
struct alignas(std::max_align_t) HtmlTree::Block {
  Block* Before;
  Block* Behind;
  size_t Size;
};

HtmlTree::HtmlTree(std::string_view page, size_t mostBytes, Yielder& yielder)
    : left_(mostBytes), yielder_(yielder) {
  Parse(page);
}

HtmlTree::~HtmlTree() {
  while (blocks_ != nullptr) {
    Block* const block = blocks_;
    blocks_ = block->Behind;
    std::free(block);
  }
}

/// Only C stands between a jump and here, and nothing of the parser's is left behind: all that it has is in
/// blocks_.
void HtmlTree::Parse(std::string_view page) {
  if (setjmp(full_) != 0) {
    output_ = nullptr;
    return;
  }
  GumboOptions options = kGumboDefaultOptions;
  options.allocator = Allocate;
  options.deallocator = Free;
  options.userdata = this;
  options.max_errors = 0;
  output_ = gumbo_parse_with_options(&options, page.data(), page.size());
}

void* HtmlTree::Allocate(void* tree, size_t size) {
  auto& self = *static_cast<HtmlTree*>(tree);
  self.yielder_.Yield();
  if (self.yielder_.Stopped()) std::longjmp(self.full_, 1);
  auto* const block =
      size + sizeof(Block) > self.left_ ? nullptr : static_cast<Block*>(std::malloc(size + sizeof(Block)));
  if (block == nullptr) std::longjmp(self.full_, 1);
  self.left_ -= size + sizeof(Block);
  *block = {nullptr, self.blocks_, size + sizeof(Block)};
  if (self.blocks_ != nullptr) self.blocks_->Before = block;
  self.blocks_ = block;
  return block + 1;
}

void HtmlTree::Free(void* tree, void* memory) {
  if (memory == nullptr) return;
  auto& self = *static_cast<HtmlTree*>(tree);
  Block* const block = static_cast<Block*>(memory) - 1;
  (block->Before == nullptr ? self.blocks_ : block->Before->Behind) = block->Behind;
  if (block->Behind != nullptr) block->Behind->Before = block->Before;
  self.left_ += block->Size;
  std::free(block);
}

}  // namespace korv
