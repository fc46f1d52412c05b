#pragma once

#include <iostream>
#include <string>

namespace vantel::torture {

/// Counts what went wrong, and shows the first of it.
class Report {
public:
    void wrong(const std::string& what) {
        if (++m_wrong <= 20)
            std::cout << "WRONG: " << what << std::endl;
    }

    void expect(bool holds, const std::string& what) {
        if (!holds)
            wrong(what);
    }

    int count() const { return m_wrong; }

    /// The exit status of the program.
    int status() const {
        if (m_wrong > 0)
            std::cout << m_wrong << " wrong in all" << std::endl;
        return m_wrong > 0 ? 1 : 0;
    }

private:
    int m_wrong = 0;
};

} // namespace vantel::torture
