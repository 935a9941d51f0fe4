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

bool Report::ReportContext(const Context &) {
    std::printf("case,contender,median_ms,ratio_to_floor\n");
    std::fflush(stdout);
    return true;
}

void Report::ReportRuns(const std::vector<Run> &runs) {
    std::vector<double> times;
    std::string name;
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Iteration)
            continue;
        name = run.run_name.function_name;
        if (run.error_occurred)
            std::fprintf(stderr, "%s: %s\n", name.c_str(), run.error_message.c_str());
        else
            times.push_back(run.real_accumulated_time / double(run.iterations) * 1e3);
    }
    if (times.empty())
        return;
    const std::size_t slash = name.rfind('/');
    const std::string group = name.substr(0, slash);
    const double value = median(times);
    const double floor = m_floors.emplace(group, value).first->second;
    std::printf("%s,%s,%.4g,%.2f\n", group.c_str(), name.c_str() + slash + 1, value, value / floor);
    std::fflush(stdout);
}
