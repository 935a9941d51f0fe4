#pragma once

// Counts the paintings of a window that are under way: as long as there is one the window must not go.
class PaintGuard {
public:
    explicit PaintGuard(int &count) : m_count(count) { ++m_count; }
    ~PaintGuard() { --m_count; }
    PaintGuard(const PaintGuard &) = delete;
    PaintGuard &operator=(const PaintGuard &) = delete;

private:
    int &m_count;
};
