#ifndef ZEMSUB_FUZZ_LINESOURCECHECK_H
#define ZEMSUB_FUZZ_LINESOURCECHECK_H

// Open takes a plain file whole; read through the stream instead, the same
// file must give the same answer and the very same lines.

#include <cstdio>
#include <string>
#include <type_traits>
#include <vector>

#include "FuzzSupport.h"
#include "parsers/detail/reading/LineSource.h"

namespace zemsub::fuzz {

// readFile(lines, file, loading) is one of the line-list readers; it leaves
// the file open on success.
template <class S, class ReadFile> void checkLinesAsStream(ReadFile readFile)
{
    using zemsub::detail::Loading;
    std::vector<S> loaded;
    std::vector<S> streamed;
    FILE* a = nullptr;
    FILE* b = nullptr;
    const bool loadedOk = readFile(loaded, a, Loading::Try);
    const bool streamedOk = readFile(streamed, b, Loading::Avoid);
    if (a)
        std::fclose(a);
    if (b)
        std::fclose(b);
    FUZZ_CHECK(loadedOk == streamedOk);
    FUZZ_CHECK(loaded.size() == streamed.size());
    for (size_t k = 0; k < loaded.size(); ++k) {
        FUZZ_CHECK(loaded[k].length() == streamed[k].length());
        using C = std::remove_const_t<std::remove_pointer_t<decltype(loaded[k].getData())>>;
        FUZZ_CHECK(std::char_traits<C>::compare(loaded[k].getData(), streamed[k].getData(),
                                                static_cast<size_t>(loaded[k].length())) == 0);
    }
}

} // namespace zemsub::fuzz

#endif
