#include <iostream>

/// The least that any program costs: start, one line, end.
int main() {
    std::cout << "hello\n";
}
