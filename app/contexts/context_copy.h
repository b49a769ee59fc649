#pragma once

#include <string>
#include <vector>

#include "app/contexts/context_list.h"
#include "sources/places/place_locator.h"

namespace korv {

/// Contexts for the clipboard, below a heading: file, line, left, phrase, right. UTF-8.
struct ContextCopy {
  std::string Text;  ///< A line for each, cells parted by tabs.
  std::string Html;  ///< The same as a table.
};

/// Of these places of the list, in this order, as their files have them, or in the words of the run where
/// they cannot be read. Linear in the places; reads their files. When stopped, those until then.
ContextCopy CopyContexts(const ContextList& list, const std::vector<Place>& places, size_t around,
                         PlaceLocator& locator, const Yielder& yielder);

}  // namespace korv
