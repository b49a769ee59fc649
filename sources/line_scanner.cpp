#include "sources/line_scanner.h"

#include "engine/word_stream.h"
#include "sources/line_scanner_impl.h"

namespace korv {

template class LineScanner<WordStream>;
template class LineScanner<WordSink>;

}  // namespace korv
