# Writes the page's files as C++ constants: cmake -DOUTPUT=PageSource.cpp -P embed.cmake
file(READ ${CMAKE_CURRENT_LIST_DIR}/review.html markup)
file(READ ${CMAKE_CURRENT_LIST_DIR}/review.css style)
file(READ ${CMAKE_CURRENT_LIST_DIR}/review.js script)

file(WRITE ${OUTPUT}
  "#include \"review/PageSource.h\"\n\nnamespace ornivo::ReviewPage {\n\n"
  "const std::string_view pageMarkup = R\"PAGE(${markup})PAGE\";\n\n"
  "const std::string_view pageStyle = R\"PAGE(${style})PAGE\";\n\n"
  "const std::string_view pageScript = R\"PAGE(${script})PAGE\";\n\n"
  "}  // namespace ornivo::ReviewPage\n")
