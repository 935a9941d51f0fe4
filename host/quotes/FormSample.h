#pragma once
#include "host/quotes/FileForm.h"
#include <QByteArrayList>
#include <algorithm>
#include <vector>

namespace desk {

// A table of the first lines of a file, cut into fields.
class FormSample {
public:
    static constexpr int mostColumns = 64;

    FormSample(const QByteArrayList &lines, char separator);

    int width() const { return int(m_width); }
    bool isTable() const { return m_width >= 2 && m_matching * 10 >= m_cut * 6; }
    const std::vector<Piece> &front() const { return m_rows.front(); }
    void dropFront() { m_rows.erase(m_rows.begin()); }
    void keepMatching(); // drops the rows of another width
    const std::vector<std::vector<Piece>> &rows() const { return m_rows; }
    std::vector<Piece> column(int index) const;

private:
    std::vector<std::vector<Piece>> m_rows;
    size_t m_width = 0;
    int m_matching = 0;
    int m_cut = 0;
};

// Six in ten fields satisfy the test: some lines may be broken.
template <class Test>
bool mostly(const std::vector<Piece> &fields, Test test) {
    const auto passed = std::count_if(fields.begin(), fields.end(), test);
    return !fields.empty() && passed * 10 >= std::ptrdiff_t(fields.size()) * 6;
}

bool isDigits(Piece text);

// A column that reads as times.
struct TimeColumn {
    bool found = false;
    TimeForm form = TimeForm::YearFirst;
    bool dateOnly = false;
    bool zoned = false;
};
TimeColumn findTime(const std::vector<Piece> &fields);

} // namespace desk
