# tools_tests drives the built zemsub and the example host, and links the tool's
# core to test its parts directly.
if(TARGET tools_tests)
  if(TARGET zemsub AND TARGET zemsub-host)
    target_link_libraries(tools_tests PRIVATE zemsub_core)
    # The helpers beside the layer folders: "ToolRunner.h", "SamplePictures.h".
    target_include_directories(tools_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/tools)
    target_compile_definitions(tools_tests PRIVATE
      ZEMSUB_TOOL_BINARY="$<TARGET_FILE:zemsub>"
      ZEMSUB_HOST_BINARY="$<TARGET_FILE:zemsub-host>")
    add_dependencies(tools_tests zemsub zemsub-host)
  else()
    # Configured without the tools: the program only reports that they are missing.
    target_compile_definitions(tools_tests PRIVATE ZEMSUB_TOOLS_ABSENT)
  endif()
endif()

# fix_tests drives the companion library that writes fixed copies.
if(TARGET fix_tests)
  if(TARGET zemsubfix)
    target_link_libraries(fix_tests PRIVATE zemsubfix)
  else()
    set_target_properties(fix_tests PROPERTIES EXCLUDE_FROM_ALL ON)
  endif()
endif()

# pictures_tests drives the tools' picture reading (FFmpeg and Tesseract) and the
# companion library over picture tracks made from known text.
if(TARGET pictures_tests)
  if(TARGET zemsub_pictures AND TARGET zemsubfix)
    target_link_libraries(pictures_tests PRIVATE zemsub_pictures zemsub_samplegen zemsubfix)
  else()
    set_target_properties(pictures_tests PROPERTIES EXCLUDE_FROM_ALL ON)
  endif()
endif()

# Whole outputs of every command on the samples, the quirk set, the three-track video
# and the picture samples, compared with the stored ones (tests/tools/commands/).
if(TARGET zemsub)
  find_package(Python3 COMPONENTS Interpreter)
  if(Python3_FOUND)
    add_test(NAME commands.stored_outputs
      COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/tools/commands/command_outputs.py
              $<TARGET_FILE:zemsub> ${ZEMSUB_QT_MAJOR})
    set_tests_properties(commands.stored_outputs PROPERTIES TIMEOUT 1800)
  endif()
endif()
