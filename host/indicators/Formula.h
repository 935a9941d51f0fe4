#pragma once
#include "host/core/CalculatedObject.h"
#include "host/indicators/OutputLine.h"
#include "host/pages/Page.h"
#include <QVariant>
#include <array>

namespace desk {

// A value that the user may set.
struct Parameter {
    QString name;
    PageItem::Kind kind = PageItem::Int; // Int, Double, List or Boolean
    QVariant value;
    double minimum = 0;
    double maximum = 0;
    int digits = 0;
    QStringList choices;
    bool shown = true; // behind the indicator's name
};

// Two lines of an indicator with the area between them; indexes of `lines`.
struct LineJoin {
    int first = 0;
    int second = 0;
    bool filled = true;
    int colourMode = 0; // 0 the first line's colour, 1 the second's, 2 the colour of the higher one
};

enum class Category { Other, Trend, Oscillator, Volatility, Ostrel };

// Where the first output lands.
enum class Placement { SourceLayer = 0, SourcePane = 1, OwnPane = 3 };

// The computation of one kind of indicator. A formula keeps what it needs so that the newest points can be
// computed again at a cost that does not depend on the length of the series.
class Formula {
public:
    using Sources = std::vector<SourceView>;
    using Lines = std::vector<OutputLine *>;

    virtual ~Formula();
    std::vector<Parameter> &parameters() { return m_parameters; }
    const std::vector<Parameter> &parameters() const { return m_parameters; }
    QString arguments() const; // "14, Simple": the parameters that are shown

    // All outputs that there may be; the number does not depend on the parameters.
    virtual std::vector<LineLook> lines() const = 0;
    // The parameters have changed: what was kept is void.
    virtual void reset() = 0;
    // Computes points `from` and later of the first source. The lines hold what lies before.
    virtual void compute(const Sources &sources, int from, const Lines &lines) = 0;
    // How many points back a change of the source reaches.
    virtual int reach() const { return 0; }
    virtual LevelLine levels() const { return {}; } // line: 1-based number in `lines`
    virtual std::vector<LineJoin> joins() const { return {}; }
    virtual Placement placement() const { return Placement::SourceLayer; }
    // Symbols whose series it is computed from, for a formula that takes no source.
    virtual QStringList symbols() const { return {}; }

protected:
    int addInt(const QString &name, int value, int minimum, int maximum, bool shown = true);
    int addDouble(const QString &name, double value, double minimum, double maximum, int digits);
    int addList(const QString &name, const QStringList &choices, int value, bool shown = true);
    int addSwitch(const QString &name, bool value);
    int intOf(int parameter) const { return m_parameters[size_t(parameter)].value.toInt(); }
    double doubleOf(int parameter) const { return m_parameters[size_t(parameter)].value.toDouble(); }
    bool switchOf(int parameter) const { return m_parameters[size_t(parameter)].value.toBool(); }
    int addPrice();

private:
    std::vector<Parameter> m_parameters;
};

// The kinds of indicators that there are.
struct FormulaKind {
    const char *name; // internal: one word
    const char *displayName;
    Category category;
    bool needsSource;
    std::unique_ptr<Formula> (*make)();
};
const std::vector<FormulaKind> &formulaKinds();
// By internal name, display name, or the name of an output, which begins with the internal name.
const FormulaKind *findFormulaKind(const QString &name);

} // namespace desk
