# cmake -DIN=FILE -DOUT=FILE.cpp -P EmbedFile.cmake: the embed_file tool's output, for
# cross builds, whose own tools cannot run on the build machine.
file(READ "${IN}" hex HEX)
string(LENGTH "${hex}" digits)
math(EXPR size "${digits} / 2")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
file(WRITE "${OUT}" "#include <cstddef>\n#include <cstdint>\n"
  "extern const std::uint8_t kDefaultPoolData[];\nextern const std::size_t kDefaultPoolSize;\n"
  "const std::uint8_t kDefaultPoolData[] = {\n${bytes}\n};\nconst std::size_t kDefaultPoolSize = ${size};\n")
