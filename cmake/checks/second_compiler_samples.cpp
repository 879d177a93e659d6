// Mistakes that Visual C++ warns of at /W4, by the number of the warning. It is never built: second_compiler.sh
// reads it and expects a warning in each line that bears a number.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <vector>

enum Left { kLeft = 1 };
enum Right { kRight = 2 };

class Tag;
struct Tag {};  // C4099

struct Nameless {
    struct {  // C4201
        int Field;
    };
};

int Convert(const std::vector<int>& list, long long large, double real, int small) {
    int size = list.size();          // C4267
    int narrow = large;              // C4244
    std::uint8_t byte = small;       // C4244
    float less = real;               // C4305
    int whole = real;                // C4244
    std::uint8_t constant = 300;     // C4309
    return size + narrow + byte + static_cast<int>(less) + whole + constant;
}

int Compare(int count, unsigned limit) {
    if (count < limit)               // C4018
        return 1;
    if (limit >= 0)                  // C4296
        return kLeft | kRight;       // C5054
    return count == count;           // C4127
}

int Forget(int argument) {           // C4100
    const int unread = 1;            // C4189
    int other = 0;
    while (other = std::rand())      // C4706
        ++other;
    int maybe;
    if (other > 1)                   // C4701
        maybe = 1;
    if (maybe == other);             // C4390
    return maybe;
    std::puts("");                   // C4702
}

int Use(char* text, int number) {
    std::strcpy(text, "");           // C4996
    std::sprintf(text, "%d", number);    // C4996
    std::swscanf(L"", L"%d", &number);   // C4996
    return std::getenv("X") != nullptr;  // C4996
}
