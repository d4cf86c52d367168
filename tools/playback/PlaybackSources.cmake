# How the library plays a file, as lint and fix both tell it: when to ask it (the
# probes), the library seen from the tools (format codes, the manager session, the
# stored timeline, the kind of input a path is to it), the causes and their words,
# the readers' limits, the caption image between frames. Listed here for the static library and for the fuzz builds,
# which compile them with their own instrumentation.
set(ZEMSUB_PLAYBACK_DIR ${CMAKE_CURRENT_LIST_DIR})
set(ZEMSUB_PLAYBACK_SOURCES
  ${ZEMSUB_PLAYBACK_DIR}/CaptionProbes.cpp
  ${ZEMSUB_PLAYBACK_DIR}/Causes.cpp
  ${ZEMSUB_PLAYBACK_DIR}/LibraryInput.cpp
  ${ZEMSUB_PLAYBACK_DIR}/LibraryView.cpp
  ${ZEMSUB_PLAYBACK_DIR}/ReaderLimits.cpp
  ${ZEMSUB_PLAYBACK_DIR}/TextForm.cpp)
