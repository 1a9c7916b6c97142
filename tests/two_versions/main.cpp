#include <iostream>

#include "side.h"

namespace {

void TellBoth(const char* when) {
    std::cout << when << "\n  " << first::Tell() << "\n  " << second::Tell() << '\n';
}

}  // namespace

int main() {
    TellBoth("at the start");
    first::Begin();
    TellBoth("the first begins");
    second::Begin();
    first::End();
    TellBoth("the second begins, the first ends");
    second::End();
}
