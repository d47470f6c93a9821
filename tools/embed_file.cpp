// Writes a C++ source that holds a file's bytes as an array, so the core carries
// the default pool without any resource system.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: embed_file INPUT OUTPUT.cpp\n");
        return 2;
    }
    std::ifstream in(argv[1], std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "embed_file: cannot read %s\n", argv[1]);
        return 1;
    }
    std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::FILE* out = std::fopen(argv[2], "w");
    if (!out) {
        std::fprintf(stderr, "embed_file: cannot write %s\n", argv[2]);
        return 1;
    }
    std::fprintf(out, "#include <cstddef>\n#include <cstdint>\n");
    std::fprintf(out, "extern const std::uint8_t kDefaultPoolData[];\nextern const std::size_t kDefaultPoolSize;\n");
    std::fprintf(out, "const std::uint8_t kDefaultPoolData[] = {");
    for (std::size_t i = 0; i < bytes.size(); ++i)
        std::fprintf(out, "%s%u,", (i % 32 == 0) ? "\n" : "", bytes[i]);
    std::fprintf(out, "\n};\nconst std::size_t kDefaultPoolSize = %zu;\n", bytes.size());
    return std::fclose(out) == 0 ? 0 : 1;
}
