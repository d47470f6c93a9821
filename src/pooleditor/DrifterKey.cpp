#include "pooleditor/DrifterKey.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace aq {

namespace {

// Keys are made by the hundred thousand in a harvest, so every field is appended to
// one buffer that keeps its memory from key to key.

// Upper-case hexadecimal without a prefix.
void appendHex(std::string& out, std::int64_t n) {
    auto v = static_cast<std::uint32_t>(n);
    char buf[8];
    int len = 0;
    do {
        buf[len++] = "0123456789ABCDEF"[v & 15];
        v >>= 4;
    } while (v != 0);
    while (len > 0) out.push_back(buf[--len]);
}

void appendColorField(std::string& out, const DrifterRec& d, int n, bool detailed) {
    if (detailed) {
        int seen[kSegmentSlots];
        int distinct = 0;
        for (int s = 0; s < n; ++s)
            if (std::find(seen, seen + distinct, d.segments[s].color) == seen + distinct)
                seen[distinct++] = d.segments[s].color;
        appendHex(out, d.segments[0].color);
        appendHex(out, distinct);
        return;
    }
    const std::size_t from = out.size();
    for (int s = 0; s < n; ++s) appendHex(out, d.segments[s].color);
    auto len = [&] { return out.size() - from; };
    auto at = [&](std::size_t i) { return out[from + i]; };
    // A repeating tail or head is written once: "0011" and "0101" both give "01".
    while (len() >= 2 && at(len() - 1) == at(len() - 2)) out.pop_back();
    // With three characters there are no two before the last two: such a text stays.
    auto pairsMatch = [&](std::size_t a, std::size_t b) { return at(a) == at(b) && at(a + 1) == at(b + 1); };
    while (len() >= 4 && pairsMatch(len() - 2, len() - 4)) out.resize(out.size() - 2);
    std::size_t head = 0;
    while (len() - head >= 2 && at(head) == at(head + 1)) ++head;
    while (len() - head >= 4 && pairsMatch(head, head + 2)) head += 2;
    out.erase(from, head);
}

void appendBranchField(std::string& out, const DrifterRec& d, int n) {
    out.push_back('{');
    const std::size_t from = out.size();
    for (int s = 0; s < n; ++s) appendHex(out, d.segments[s].branchCount);
    // The first segment's branching is left out.
    if (out.size() > from) out.erase(from, 1);
    out.push_back('}');
}

// Hex of the integer part; false when the value is no number (a body without segments).
bool appendClass(std::string& out, double value) {
    if (!std::isfinite(value) || value < 0 || value > 4.0e9) return false;
    appendHex(out, static_cast<std::int64_t>(value));
    return true;
}

// '=', '>' or '<' between two sizes of neighbouring segments; 0 for two zeros.
char compareSizes(float a, float b) {
    double sum = static_cast<double>(a) + b;
    if (sum == 0) return 0;
    if (std::fabs(static_cast<double>(a) - b) / sum < 0.001) return '=';
    return a > b ? '>' : '<';
}

const char* taperSymbol(char width, char length) {
    if (width == '=' && length == '=') return "=";
    if ((width == '>' && length == '=') || (width == '=' && length == '>')) return ">";
    if (width == '>' && length == '>') return "\u00BB";
    if ((width == '<' && length == '=') || (width == '=' && length == '<')) return "<";
    if (width == '<' && length == '<') return "\u00AB";
    if (width == '<' && length == '>') return "*";
    return ".";
}

void appendTaperField(std::string& out, const DrifterRec& d, int n) {
    const char* last = "";
    for (int s = 0; s < n; ++s) {
        const Segment& a = d.segments[s];
        const Segment& b = d.segments[(s + 1) % n];
        char width = compareSizes(a.width, b.width);
        char len = compareSizes(a.length, b.length);
        if (!width || !len) return;
        const char* symbol = taperSymbol(width, len);
        if (std::strcmp(symbol, last) != 0) out += symbol;
        last = symbol;
    }
}

// The length of the UTF-8 character that starts with byte c, so "»" counts as one.
std::size_t charLength(unsigned char c) { return c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1; }

// CompressKey on the text from `from` to the end of `s`, in place.
void compressTail(std::string& s, std::size_t from) {
    std::size_t w = from;
    std::size_t lastAt = 0, lastLen = 0;
    for (std::size_t i = from; i < s.size();) {
        std::size_t len = std::min(charLength(static_cast<unsigned char>(s[i])), s.size() - i);
        bool repeat = len == lastLen && (len == 1 ? s[lastAt] == s[i] : s.compare(lastAt, len, s, i, len) == 0);
        // The kept copy of the previous character sits at lastAt, before the write point.
        if (!repeat) {
            std::memmove(&s[w], &s[i], len);
            lastAt = w;
            w += len;
        }
        lastLen = len;
        i += len;
    }
    s.resize(w);
    // No two neighbours are alike any more, so dropping a 0 never makes a new "0}".
    for (std::size_t p = from; (p = s.find("0}", p)) != std::string::npos;) s.erase(p, 1);
}

}  // namespace

std::string CompressKey(const std::string& text) {
    std::string out = text;
    compressTail(out, 0);
    return out;
}

void appendDrifterKey(std::string& out, const DrifterRec& d, bool shortKey, bool compressed, bool detailed) {
    const std::size_t from = out.size();
    appendHex(out, d.segmentCount);
    // A record that can't be read as a body ends the key where it stands.
    if (d.segmentCount < 0 || d.segmentCount > kSegmentSlots) return;
    const int n = d.segmentCount;
    appendColorField(out, d, n, detailed);
    appendBranchField(out, d, n);
    if (shortKey) return;

    double perLength = static_cast<double>(d.totalLength / static_cast<float>(n));
    double perMass = static_cast<double>(d.mass / static_cast<float>(n));
    if (appendClass(out, detailed ? perLength / 27 + 0.5 + std::sqrt(perLength) / 5
                                  : perLength / 10 + std::sqrt(perLength) / 3) &&
        appendClass(out,
                    detailed ? perMass / 50 + 0.5 + std::sqrt(perMass) / 13 : perMass / 37 + std::sqrt(perMass) / 5)) {
        if (detailed) appendTaperField(out, d, n);
        if (compressed) compressTail(out, from);
    }
}

std::string DrifterKey(const Pool& pool, int index, bool shortKey, bool compressed, bool detailed) {
    if (index < 0 || index >= pool.drifterCount || static_cast<std::size_t>(index) >= pool.drifters.size()) return "";
    std::string key;
    appendDrifterKey(key, pool.drifters[static_cast<std::size_t>(index)], shortKey, compressed, detailed);
    return key;
}

std::string DrifterKeyPair(const Pool& pool, int index) {
    return DrifterKey(pool, index, false, true, false) + "\r\n" + DrifterKey(pool, index, false, true, true);
}

}  // namespace aq
