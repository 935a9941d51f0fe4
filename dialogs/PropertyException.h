#pragma once
#include <exception>
#include <string>

// A property item of the wrong type, or one for which there is no memory.
class PropertyException : public std::exception {
public:
    explicit PropertyException(std::string text) : m_text(std::move(text)) {}
    const char *what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_text;
};
