#pragma once
#include <exception>
#include <string>

// Failures of the market data.
class CRMExeption : public std::exception {
public:
    explicit CRMExeption(const char *text) : m_text(text ? text : "") {}
    const char *what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_text;
};
