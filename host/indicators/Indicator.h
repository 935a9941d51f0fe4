#pragma once
#include "host/core/CalculatedObject.h"
#include "host/indicators/Formula.h"
#include <map>

namespace desk {

class IndicatorService;

// One indicator: a formula on a source, its output arrays, its settings.
class Indicator : public CalculatedObject {
public:
    Indicator(IndicatorService &maker, const FormulaKind &kind);

    const FormulaKind &kind() const { return m_kind; }
    // The arrays that it is computed from: the source's, or those of a formula that takes none.
    struct Input {
        Handle object = 0;
        mvDataPointArray *array = nullptr;
    };
    void setInputs(const std::vector<Input> &inputs, int level);
    const std::vector<Input> &inputs() const { return m_inputs; }
    bool dependsOn(Handle object) const;
    void setSourceLine(int line) { m_sourceLine = line; }

    // The source's points from `first` on have changed; brings the outputs up to date.
    void update(Handle source, int first);
    // First changed point of an output after the last update.
    int firstChanged(const mvDataPointArray *output) const;
    // An update was left out, since nobody looked: everything is computed anew at the next one.
    void setStale() { m_stale = true; }
    bool isStale() const { return m_stale; }
    void recompute();
    void ownArrays(); // writes the object's handle into its arrays
    void tellApart(int copy); // another colour for a further line of the same kind; the first one is copy 0

    bool isInstrument() const override { return false; }
    const coreNameInstrument &identity() const override { return m_identity; }
    std::vector<mvDataPointArray *> outputs() const override;
    std::vector<Handle> sources() const override;
    int sourceLine() const override { return m_sourceLine; }
    namePeriod period() const override;
    QString menuText() const override;
    LevelLine levels() const override;
    std::vector<coreIndicatorLinks> links() const override;
    std::unique_ptr<Page> page() const override;
    QString applyPage(const Page &page) override;

private:
    struct Output {
        std::unique_ptr<OutputLine> line;
        bool present = true;
        QString name;
    };

    void describe(); // names, places and presence of the outputs, after a change of parameters or source
    void dress(mvDataPointArray &array, const LineLook &look);
    int presentLine(int line) const; // 1-based number among the outputs that are there; 0 when it is not
    QString applyParameters(const Page &page, bool &changed);
    bool applyLook(const Page &page);

    IndicatorService &m_service;
    const FormulaKind &m_kind;
    std::unique_ptr<Formula> m_formula;
    coreNameInstrument m_identity;
    std::vector<Input> m_inputs;
    std::vector<Output> m_outputs;
    int m_level = 1;
    int m_sourceLine = 1;
    int m_firstChanged = 0;
    bool m_stale = true;
};

} // namespace desk
