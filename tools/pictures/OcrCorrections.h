#ifndef ZEMSUB_PICTURES_OCRCORRECTIONS_H
#define ZEMSUB_PICTURES_OCRCORRECTIONS_H

#include <QSet>
#include <QString>

namespace zemsub::tool {

// One line read from a subtitle picture, with the confusions such reading is
// known for put right:
// - "|" read for "I" (a word of its own, or before lower-case letters); "l" for
//   "I" where a word of one letter stands alone ("l am" -> "I am");
// - curly apostrophes and quotes made straight, so every reader shows them;
// - a dialogue dash at the line start, as "- " (hyphen, en or em dash, with or
//   without its space);
// - no space before , . ! ? ; : (English usage);
// - "0" between letters read as "O".
// - with a word list: a word read with a capital "L" or "I" inside a sentence
//   whose lower-case form ("l...") is a word and its capital one is not
//   ("The Lighthouse" -> "The lighthouse").
QString correctReading(const QString& line, const QSet<QString>* words = nullptr);

// The system's English word list (/usr/share/dict/words, from the wamerican
// package), loaded once; empty when it is not installed.
const QSet<QString>& englishWords();

} // namespace zemsub::tool

#endif
