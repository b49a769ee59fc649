#include "engine/text/sentence_breaks.h"

namespace korv {

namespace {

bool IsTerm(SentenceClass of) {
  return of == SentenceClass::ATerm || of == SentenceClass::STerm;
}

bool HasCase(SentenceClass of) {
  return of == SentenceClass::Upper || of == SentenceClass::Lower;
}

}  // namespace

void SentenceBreaks::Begin(SentenceClass term) {
  phase_ = Phase::Term;
  isPeriod_ = term == SentenceClass::ATerm;
  behindLetter_ = afterLetter_;
}

bool SentenceBreaks::FeedClass(SentenceClass next) {
  // SB5: these belong to the character before them.
  if (next == SentenceClass::Extend || next == SentenceClass::Format) return false;
  bool ended = false;
  if (next == SentenceClass::Sep) {
    // SB4
    Reset();
    return true;
  }
  if (phase_ == Phase::Doubt)
    ended = FeedInDoubt(next);
  else if (phase_ != Phase::Inside)
    ended = FeedBehindTerm(next);
  else if (IsTerm(next))
    Begin(next);
  afterLetter_ = HasCase(next);
  return ended;
}

bool SentenceBreaks::FeedBehindTerm(SentenceClass next) {
  if (IsTerm(next)) {  // SB8a
    Begin(next);
    return false;
  }
  switch (next) {
    case SentenceClass::SContinue:  // SB8a
      phase_ = Phase::Inside;
      return false;
    case SentenceClass::Sp:  // SB9, SB10
      phase_ = Phase::Spaced;
      return false;
    case SentenceClass::Close:  // SB9
      if (phase_ == Phase::Spaced) break;
      phase_ = Phase::Closed;
      return false;
    case SentenceClass::Numeric:  // SB6
      if (!isPeriod_ || phase_ != Phase::Term) break;
      phase_ = Phase::Inside;
      return false;
    case SentenceClass::Upper: {  // SB7, SB11
      const bool goesOn = isPeriod_ && behindLetter_ && phase_ == Phase::Term;
      phase_ = Phase::Inside;
      return !goesOn;
    }
    case SentenceClass::Lower:  // SB8, SB11
      phase_ = Phase::Inside;
      return !isPeriod_;
    case SentenceClass::OLetter:  // SB11
      phase_ = Phase::Inside;
      return true;
    default:
      break;
  }
  // SB8 looks for the next letter, SB11 ends the sentence here.
  phase_ = isPeriod_ ? Phase::Doubt : Phase::Inside;
  return !isPeriod_;
}

bool SentenceBreaks::FeedInDoubt(SentenceClass next) {
  if (IsTerm(next)) {
    Begin(next);
    return true;
  }
  if (!HasCase(next) && next != SentenceClass::OLetter) return false;
  phase_ = Phase::Inside;
  return next != SentenceClass::Lower;
}

}  // namespace korv
