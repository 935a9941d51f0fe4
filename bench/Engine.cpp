#include "bench/Engine.h"

#include "host/indicators/Formula.h"

#include <algorithm>

struct Engine::Kind {
    std::unique_ptr<desk::Formula> formula;
    std::vector<std::unique_ptr<desk::OutputLine>> outputs;

    void compute(const mvDataPointArray &array, int changed) {
        const desk::Formula::Sources sources{desk::SourceView(&array)};
        const int first = std::max(0, changed - formula->reach());
        desk::Formula::Lines lines;
        for (const auto &output : outputs) {
            output->truncate(first);
            lines.push_back(output.get());
        }
        formula->compute(sources, first, lines);
        desk::TimeAxis axis(sources[0], desk::Period{'I', 1});
        for (const auto &output : outputs)
            output->publish(axis, first);
    }
};

Engine::Engine(const std::vector<corePointCandle> &bars) : m_bars(bars) {
    clearRecord(m_array);
    for (const char *name : {"TIME", "OPEN", "HIGH", "LOW", "CLOSE", "VOLUME"}) {
        coreFieldDescriptor field;
        clearRecord(field);
        field.type = m_fields.empty() ? DPT_LONG : DPT_FLOAT;
        std::strcpy(field.name, name);
        m_fields.push_back(field);
    }
    m_array.identity.m_periods.period = 'I';
    m_array.identity.m_periods.lenPeriod = 1;
    m_array.fields = m_fields.data();
    m_array.fieldCount = static_cast<int>(m_fields.size());
    m_array.precision = 5;
    m_array.recordSize = sizeof(corePointCandle);
    m_array.data = reinterpret_cast<unsigned char *>(m_bars.data());
    m_array.count = static_cast<int>(m_bars.size());
    for (const desk::FormulaKind &kind : desk::formulaKinds()) {
        if (!kind.needsSource || m_kinds.size() == 10)
            continue;
        auto entry = std::make_unique<Kind>();
        entry->formula = kind.make();
        for (const desk::LineLook &look : entry->formula->lines()) {
            entry->outputs.push_back(std::make_unique<desk::OutputLine>(look.style));
            entry->outputs.back()->setShift(look.shift);
        }
        entry->compute(m_array, 0);
        m_kinds.push_back(std::move(entry));
    }
}

Engine::~Engine() = default;

void Engine::quote() {
    m_bars.back().close += 0.00001f;
    for (const auto &kind : m_kinds)
        kind->compute(m_array, m_array.count - 1);
}
