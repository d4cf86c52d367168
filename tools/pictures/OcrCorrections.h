#ifndef ZEMSUB_PICTURES_OCRCORRECTIONS_H
#define ZEMSUB_PICTURES_OCRCORRECTIONS_H

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
QString correctReading(const QString& line);

} // namespace zemsub::tool

#endif
