# The companion library's sources, for the shared library here and for the
# fuzz builds, which compile them again with their own instrumentation.
set(ZEMSUBFIX_DIR ${CMAKE_CURRENT_LIST_DIR})
set(ZEMSUBFIX_SOURCES
  ${ZEMSUBFIX_DIR}/CaptionLines.cpp
  ${ZEMSUBFIX_DIR}/CopyCheck.cpp
  ${ZEMSUBFIX_DIR}/FixReasons.cpp
  ${ZEMSUBFIX_DIR}/FixSource.cpp
  ${ZEMSUBFIX_DIR}/HeldTimes.cpp
  ${ZEMSUBFIX_DIR}/LineSink.cpp
  ${ZEMSUBFIX_DIR}/PlainWriter.cpp
  ${ZEMSUBFIX_DIR}/PlayerScreen.cpp
  ${ZEMSUBFIX_DIR}/SavedCopy.cpp
  ${ZEMSUBFIX_DIR}/ScriptWriter.cpp
  ${ZEMSUBFIX_DIR}/Stretch.cpp
  ${ZEMSUBFIX_DIR}/SubRipWriter.cpp
  ${ZEMSUBFIX_DIR}/ZemsubConvert.cpp
  ${ZEMSUBFIX_DIR}/ZemsubFix.cpp)
set(ZEMSUBFIX_INCLUDE_DIRS ${ZEMSUBFIX_DIR} ${ZEMSUBFIX_DIR}/..)
# The original is read by the tool's reading (zemsub_reading), linked beside.
