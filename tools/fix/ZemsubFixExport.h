#ifndef ZEMSUBFIX_EXPORT_H
#define ZEMSUBFIX_EXPORT_H

// Marks the companion library's public surface; everything else is hidden.
#define ZEMSUBFIX_EXPORT __attribute__((visibility("default")))

#endif
