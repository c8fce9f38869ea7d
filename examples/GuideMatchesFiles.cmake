# cmake -DGUIDE=docs/host-guide.md -DEXAMPLES=examples -P GuideMatchesFiles.cmake
# Every example program is shown in the guide whole, in a ```cpp block whose first line names it
# ("// examples/wall.cpp"), byte for byte as the file: what the guide shows is what the tests compile.
file(READ ${GUIDE} guide)
file(GLOB programs ${EXAMPLES}/*.cpp)
foreach(program ${programs})
  get_filename_component(name ${program} NAME)
  file(READ ${program} text)
  string(FIND "${guide}" "```cpp\n${text}```" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "docs/host-guide.md does not show examples/${name} whole, as the file is")
  endif()
endforeach()
list(LENGTH programs count)
if(count LESS 4)
  message(FATAL_ERROR "only ${count} example programs found in ${EXAMPLES}")
endif()
