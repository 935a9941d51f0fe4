#include "bench/Report.h"

#include <algorithm>
#include <cstdio>

namespace {

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
}

} // namespace

void Report::ReportRuns(const std::vector<Run> &runs) {
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;
        const std::string name = run.run_name.function_name;
        const std::size_t slash = name.rfind('/');
        const std::string group = name.substr(0, slash), contender = name.substr(slash + 1);
        if (!m_ms.count(group))
            m_cases.push_back(group);
        if (!m_ms[group].count(contender))
            m_contenders[group].push_back(contender);
        m_ms[group][contender].push_back(run.real_accumulated_time / double(run.iterations) * 1e3);
    }
}

void Report::print() const {
    std::printf("case,contender,median_ms,ratio_to_floor\n");
    for (const std::string &group : m_cases) {
        const auto &contenders = m_ms.at(group);
        const auto floor = contenders.find("floor");
        for (const std::string &name : m_contenders.at(group)) {
            const double value = median(contenders.at(name));
            if (floor != contenders.end())
                std::printf("%s,%s,%.6g,%.2f\n", group.c_str(), name.c_str(), value, value / median(floor->second));
            else
                std::printf("%s,%s,%.6g,\n", group.c_str(), name.c_str(), value);
        }
    }
}
