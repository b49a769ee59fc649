#include "sources/scan/line_scanner.h"

#include "engine/corpus/corpus_builder.h"
#include "sources/scan/line_scanner_impl.h"
#include "sources/scan/word_cutter.h"

namespace korv {

template class LineScanner<CorpusBuilder>;
template class LineScanner<WordSink>;
template class LineScanner<WordCutter>;

}  // namespace korv
