#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

// One line a case and contender: case,contender,median_ms,ratio_to_floor. Names are "case/contender".
class Report : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override;
    void print() const;

private:
    std::vector<std::string> m_cases;
    std::map<std::string, std::map<std::string, std::vector<double>>> m_ms;
    std::map<std::string, std::vector<std::string>> m_contenders;
};
