#include "sources/scan/line_scanner.h"

#include "engine/corpus/corpus_builder.h"
#include "sources/scan/line_scanner_impl.h"

namespace korv {

template class LineScanner<CorpusBuilder>;
template class LineScanner<WordSink>;

}  // namespace korv
