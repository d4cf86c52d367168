#ifndef ZEMSUB_BENCH_BENCHINPUTS_H
#define ZEMSUB_BENCH_BENCHINPUTS_H

#include <string>

// Generated inputs, written once into a temporary directory for the whole run.
namespace bench {

// SubRip text of `entries` captions of two lines each (4 lines + a blank per entry),
// entry k showing from k * 3 s for 2 s.
std::string srtText(int entries);
// ASS script with `dialogues` Dialogue lines, one every 3 s for 2 s, with override tags.
std::string assText(int dialogues);
// A caption text of about `bytes` bytes, a tag block every few words.
std::string taggedText(size_t bytes);
// Caption number i of a set of distinct two-line captions.
std::string captionText(int i);

// Path of a file in the run's temporary directory holding bytes.
std::string writeTemp(const std::string& name, const std::string& bytes);

}  // namespace bench

#endif
