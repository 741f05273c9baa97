#pragma once

#include "solver/language/call_vocabulary.h"

// What calls assert that constrain many variables: the posters of GetCallEntries. Each returns
// false, reported, when its arguments do not go together.
namespace kiv {

bool PostAllDifferentCall(const CallSite& site);
bool PostCircuitCall(const CallSite& site);
bool PostSubcircuitCall(const CallSite& site);
bool PostInverseCall(const CallSite& site);
bool PostCumulative(const CallSite& site);
bool PostDisjunctive(const CallSite& site);
bool PostGlobalCardinality(const CallSite& site);
bool PostLexLess(const CallSite& site);
bool PostLexLessOrEqual(const CallSite& site);
bool PostTable(const CallSite& site);

}  // namespace kiv
