#ifndef ZEMSUB_PICTURES_OCRCORRECTIONS_H
#define ZEMSUB_PICTURES_OCRCORRECTIONS_H

#include <QSet>
#include <QString>

namespace zemsub::tool {

// One line read from a subtitle picture in language (a Tesseract name), with
// the confusions such reading is known for put right where they hold:
// - every language: curly apostrophes and quotes made straight, so every reader
//   shows them; a dialogue dash at the line start as "- " (hyphen, en or em
//   dash, with or without its space); "0" between letters read as "O"; no space
//   before "," and ".";
// - every language but French: no space before "!", "?", ";" and ":" (French
//   sets one there);
// - English: "|" read for "I" (a word of its own, or before lower-case letters);
//   "l" for "I" where a word of one letter stands alone ("l am" -> "I am");
//   a word read with "l" for "I" that the word list knows only with "I"
//   ("ls" -> "Is");
// - with a word list (any language): a word read with a capital "L" or "I"
//   inside a sentence whose lower-case form ("l...") is a word and its capital
//   one is not ("The Lighthouse" -> "The lighthouse").
// What is drawn in brackets and French elisions ("l'encre", "d'abord") stay.
QString correctReading(const QString& line, const QString& language, const QSet<QString>* words = nullptr);

// The system's word list for a Tesseract language (Debian's w* packages in
// /usr/share/dict: wamerican for "eng", wfrench for "fra", ...), loaded once;
// empty when the language has none or it is not installed.
const QSet<QString>& wordList(const QString& language);

// The English one.
const QSet<QString>& englishWords();

} // namespace zemsub::tool

#endif
