// What plain C functions under the "C" locale print and read: one answer line for each line of
// input. Shares nothing with the library. An input line is a letter and its arguments, the last of
// which is the rest of the line:
//
//     R text                            strtod: the bits in hexadecimal, or "nan" with its sign
//     F precision text                  "%.*f"
//     G precision text                  "%.*G"
//     D size behind significant text    the decimal form; size 0 is an integer
//     S text                            suffix: format, then the text before it in brackets
//     H s|u text                        hexadecimal, signed or unsigned; "refused"
//     B s|u text                        binary
//     I text                            IPv4
//     T text                            time
//     N text                            typed decimal of the unit "A"; "n" with "," as point
//     C text                            typed choice of -1 "Aus", 3 "Drehmoment" and 10 "x: y"
//     A text                            typed parameter address
//     h size number                     a number shown hexadecimal; b binary
//     t number                          a number shown as time; i as IPv4

#include <cerrno>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <regex.h>

namespace {

constexpr size_t LineSize = 4096;
constexpr int MaximumPrecision = 1100;
constexpr int MaximumGroups = 7;

char printed[LineSize];

struct Pattern {
    Pattern(const char *text, int flags) { regcomp(&expression, text, REG_EXTENDED | flags); }
    ~Pattern() { regfree(&expression); }

    bool match(const char *text)
    {
        return regexec(&expression, text, MaximumGroups, groups, 0) == 0;
    }

    regex_t expression;
    regmatch_t groups[MaximumGroups];
};

int cap(int precision)
{
    return precision > MaximumPrecision ? MaximumPrecision : precision;
}

template <typename Real>
void printEngineering(Real x, int n, Real (*log10Of)(Real))
{
    const Real a = x < 0 ? -x : x;
    if (a == 0 || std::isnan(x) || std::isinf(x)
        || (static_cast<double>(a) >= 0.001 && static_cast<double>(a) <= 9999999.4)) {
        std::snprintf(printed, sizeof printed, "%.*G", n, static_cast<double>(x));
        return;
    }
    const int e = static_cast<int>(std::trunc(static_cast<double>(log10Of(a))));
    int e3 = 3 * (e / 3);
    Real m = a / static_cast<Real>(std::pow(10.0, static_cast<double>(e3)));
    if (m < 1) {
        m = m * 1000;
        e3 -= 3;
    }
    const int d = static_cast<int>(std::trunc(static_cast<double>(log10Of(m))));
    const int decimals = n - d - 1 > 0 ? n - d - 1 : 0;
    std::snprintf(printed, sizeof printed, "%.*f", decimals, static_cast<double>(x < 0 ? -m : m));
    size_t length = std::strlen(printed);
    while (length > 0) {
        const char last = printed[length - 1];
        if (last != '0') {
            if (last == '.')
                --length;
            break;
        }
        --length;
    }
    std::snprintf(printed + length, sizeof printed - length, "E%+d", e3);
}

void printDecimal(int size, int behind, int significant, double x)
{
    if (size != 0 && significant != 0) {
        if (size == 8)
            printEngineering<double>(x, cap(significant), log10);
        else
            printEngineering<float>(static_cast<float>(x), cap(significant), log10f);
        return;
    }
    std::snprintf(printed, sizeof printed, "%.*f", cap(behind), x);
    if (size == 0)
        return;
    const int limit = size == 8 ? 15 : 7;
    const int length = static_cast<int>(std::strlen(printed)) - 1 - (x < 0 ? 1 : 0);
    if (length > limit)
        printEngineering<double>(x, limit, log10);
}

const char *rest(const char *line, int arguments)
{
    for (; arguments > 0; --arguments)
        line = std::strchr(line, ' ') + 1;
    return line;
}

void answerNumber(double value)
{
    unsigned long long bits;
    std::memcpy(&bits, &value, sizeof bits);
    if (std::isnan(value))
        std::printf("%f\n", value);
    else
        std::printf("%llx\n", bits);
}

void answerSuffix(const char *text)
{
    static Pattern pattern("(.*)(hex|bin|dec)", 0);
    if (!pattern.match(text)) {
        std::printf("none [%s]\n", text);
        return;
    }
    std::printf("%.3s [%.*s]\n", text + pattern.groups[2].rm_so,
        static_cast<int>(pattern.groups[1].rm_eo - pattern.groups[1].rm_so),
        text + pattern.groups[1].rm_so);
}

void answerDigits(const char *text, regmatch_t digits, int base, bool isSigned)
{
    char plain[LineSize];
    size_t length = 0;
    for (regoff_t i = digits.rm_so; i < digits.rm_eo; ++i) {
        if (text[i] != ' ')
            plain[length++] = text[i];
    }
    plain[length] = '\0';
    errno = 0;
    const unsigned long long value = std::strtoull(plain, nullptr, base);
    if (errno == ERANGE)
        std::puts("refused");
    else if (isSigned)
        std::printf("%lld\n", static_cast<long long>(value));
    else
        std::printf("%llu\n", value);
}

void answerHexadecimal(const char *text, bool isSigned)
{
    static Pattern pattern("^(0x)?([0-9a-fA-F ]+)[ ]*$", 0);
    if (pattern.match(text))
        answerDigits(text, pattern.groups[2], 16, isSigned);
    else
        std::puts("refused");
}

void answerBinary(const char *text, bool isSigned)
{
    static Pattern pattern("^((1|0| )+)$", 0);
    if (pattern.match(text))
        answerDigits(text, pattern.groups[1], 2, isSigned);
    else
        std::puts("refused");
}

unsigned numberOf(const char *text, regmatch_t group)
{
    return group.rm_so < 0 ? 0
                           : static_cast<unsigned>(std::strtoul(text + group.rm_so, nullptr, 10));
}

void answerIpv4(const char *text)
{
    static Pattern pattern("^([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})", 0);
    char packed[LineSize];
    size_t length = 0;
    for (; *text; ++text) {
        if (*text != ' ')
            packed[length++] = *text;
    }
    packed[length] = '\0';
    if (!pattern.match(packed)) {
        std::puts("refused");
        return;
    }
    unsigned parts[4];
    for (int i = 0; i < 4; ++i) {
        char part[4] = {};
        const regmatch_t group = pattern.groups[i + 1];
        std::memcpy(part, packed + group.rm_so, static_cast<size_t>(group.rm_eo - group.rm_so));
        parts[i] = static_cast<unsigned>(std::strtoul(part, nullptr, 10));
        if (parts[i] > 255) {
            std::puts("refused");
            return;
        }
    }
    std::printf("%u\n", parts[0] * 16777216 + parts[1] * 65536 + parts[2] * 256 + parts[3]);
}

void answerTime(const char *text)
{
    static Pattern pattern("^(([0-9]{0,5})h)?[ ]?(([0-9]{0,2})m)?[ ]?(([0-9]{0,2})s)?", 0);
    pattern.match(text);
    unsigned hours = numberOf(text, pattern.groups[2]);
    unsigned minutes = numberOf(text, pattern.groups[4]);
    unsigned seconds = numberOf(text, pattern.groups[6]);
    for (; seconds >= 60; seconds -= 60)
        ++minutes;
    for (; minutes >= 60; minutes -= 60)
        ++hours;
    std::printf("%u\n", hours * 4096 + minutes * 64 + seconds);
}

/// Without its outer blanks.
char *trimmed(const char *text)
{
    static char result[LineSize];
    text += std::strspn(text, " ");
    std::strcpy(result, text);
    for (size_t length = std::strlen(result); length > 0 && result[length - 1] == ' '; --length)
        result[length - 1] = '\0';
    return result;
}

void answerTypedDecimal(const char *text, char point)
{
    char number[LineSize];
    std::strcpy(number, trimmed(text));
    const size_t length = std::strlen(number);
    if (length >= 2 && std::strcmp(number + length - 2, " A") == 0) {
        number[length - 1] = '\0';
        std::memmove(number, trimmed(number), length);
    }
    for (char *c = number; *c; ++c)
        *c = *c == point ? '.' : *c;
    std::printf("%s\n", number);
}

/// Whether the text is one whole integer of 64 bits, outer blanks apart; prints it then.
bool answerInteger(const char *text)
{
    const char *plain = trimmed(text);
    char *end = nullptr;
    errno = 0;
    const long long value = std::strtoll(plain, &end, 10);
    if (*plain && *end == '\0' && errno == 0) {
        std::printf("%lld\n", value);
        return true;
    }
    errno = 0;
    const unsigned long long large = std::strtoull(plain, &end, 10);
    if (*plain == '\0' || *plain == '-' || *end != '\0' || errno != 0)
        return false;
    std::printf("%llu\n", large);
    return true;
}

void answerTypedChoice(const char *text)
{
    char number[LineSize];
    std::strcpy(number, text);
    number[std::strcspn(number, ":")] = '\0';
    if (answerInteger(number))
        return;
    const char *plain = trimmed(text);
    if (std::strcmp(plain, "Aus") == 0)
        std::puts("-1");
    else if (std::strcmp(plain, "Drehmoment") == 0)
        std::puts("3");
    else if (std::strcmp(plain, "x: y") == 0)
        std::puts("10");
    else
        std::puts(text);
}

void answerTypedAddress(const char *text)
{
    static Pattern number("^[+-]?[0-9]+$", 0);
    static Pattern pattern("^(([1-4])\\.)?([A-Z])([0-9]{1,3})(\\[([0-9]{1,5})\\])?( .*)?$", 0);
    const char *plain = trimmed(text);
    errno = 0;
    std::strtoll(plain, nullptr, 10);
    if (number.match(plain) && errno == 0) {
        std::puts(plain);
        return;
    }
    if (!pattern.match(plain) || numberOf(plain, pattern.groups[6]) > 16383) {
        std::puts(text);
        return;
    }
    const unsigned axis = pattern.groups[2].rm_so < 0 ? 0 : numberOf(plain, pattern.groups[2]) - 1;
    const unsigned group = static_cast<unsigned>(plain[pattern.groups[3].rm_so] - 'A' + 1);
    std::printf("%u\n",
        (axis << 30) + (numberOf(plain, pattern.groups[6]) << 16) + group * 1000
            + numberOf(plain, pattern.groups[4]));
}

/// 0 for what is no integer of 64 bits; a negative one in two's complement.
unsigned long long bitsOf(const char *text)
{
    errno = 0;
    char *end = nullptr;
    const unsigned long long value = std::strtoull(text, &end, 10);
    return errno == 0 && *end == '\0' ? value : 0;
}

void answerShownHexadecimal(int size, const char *text)
{
    const unsigned long long value = bitsOf(text);
    switch (size) {
    case 1:
        std::printf("%02x hex\n", static_cast<unsigned>(value & 0xFF));
        return;
    case 2:
        std::printf("%04x hex\n", static_cast<unsigned>(value & 0xFFFF));
        return;
    case 4:
        std::printf("%08x hex\n", static_cast<unsigned>(value & 0xFFFFFFFF));
        return;
    default:
        std::printf("%016x hex\n", static_cast<unsigned>(value & 0xFFFFFFFF));
    }
}

void answerShownBinary(int size, const char *text)
{
    const unsigned long long value = bitsOf(text);
    for (int byte = size - 1; byte >= 0; --byte) {
        for (int bit = 7; bit >= 0; --bit) {
            std::putchar(value / (1ULL << (byte * 8 + bit)) % 2 == 1 ? '1' : '0');
            if (bit == 4)
                std::putchar(' ');
        }
        std::putchar(' ');
    }
    std::puts("bin");
}

/// 0 for what is no unsigned integer of 32 bits.
unsigned wordOf(const char *text)
{
    const unsigned long long value = *text == '-' ? 0 : bitsOf(text);
    return value <= 0xFFFFFFFF ? static_cast<unsigned>(value) : 0;
}

void answerShownTime(unsigned value)
{
    std::printf("%uh %02um %02us\n", value / 4096, value / 64 % 64, value % 64);
}

void answerShownIpv4(unsigned value)
{
    std::printf(
        "%u.%u.%u.%u\n", value / 16777216, value / 65536 % 256, value / 256 % 256, value % 256);
}

void answer(const char *line)
{
    int first = 0;
    int second = 0;
    int third = 0;
    switch (line[0]) {
    case 'R':
        answerNumber(std::strtod(rest(line, 1), nullptr));
        return;
    case 'F':
        std::sscanf(line, "F %d", &first);
        std::printf("%.*f\n", cap(first), std::strtod(rest(line, 2), nullptr));
        return;
    case 'G':
        std::sscanf(line, "G %d", &first);
        std::printf("%.*G\n", cap(first), std::strtod(rest(line, 2), nullptr));
        return;
    case 'D':
        std::sscanf(line, "D %d %d %d", &first, &second, &third);
        printDecimal(first, second, third, std::strtod(rest(line, 4), nullptr));
        std::puts(printed);
        return;
    case 'S':
        answerSuffix(rest(line, 1));
        return;
    case 'H':
        answerHexadecimal(rest(line, 2), line[2] == 's');
        return;
    case 'B':
        answerBinary(rest(line, 2), line[2] == 's');
        return;
    case 'I':
        answerIpv4(rest(line, 1));
        return;
    case 'T':
        answerTime(rest(line, 1));
        return;
    case 'N':
    case 'n':
        answerTypedDecimal(rest(line, 1), line[0] == 'n' ? ',' : '.');
        return;
    case 'C':
        answerTypedChoice(rest(line, 1));
        return;
    case 'A':
        answerTypedAddress(rest(line, 1));
        return;
    case 'h':
        answerShownHexadecimal(std::atoi(line + 2), rest(line, 2));
        return;
    case 'b':
        answerShownBinary(std::atoi(line + 2), rest(line, 2));
        return;
    case 't':
        answerShownTime(wordOf(rest(line, 1)));
        return;
    case 'i':
        answerShownIpv4(wordOf(rest(line, 1)));
        return;
    }
}

} // namespace

int main()
{
    std::setlocale(LC_ALL, "C");
    static char line[LineSize];
    while (std::fgets(line, sizeof line, stdin)) {
        line[std::strcspn(line, "\n")] = '\0';
        answer(line);
    }
    return 0;
}
