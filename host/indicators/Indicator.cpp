#include "host/indicators/Indicator.h"
#include "host/indicators/IndicatorService.h"
#include "module/HostRecords.h"
#include <QCoreApplication>
#include <algorithm>
#include <iterator>

namespace desk {

namespace {

// Value axes of indicators with a pane of their own are told apart from those of symbols by this bit.
constexpr Word ownAxis = 0x80000000;

enum DrawKind : Word { DrawByStyle = 4, DrawMarks = 6, DrawDotsOnValues = 8 };
enum LineShow : int { ShowLine = 0, ShowHistogram = 1, ShowMarks = 3 };

} // namespace

Indicator::Indicator(IndicatorService &maker, const FormulaKind &kind)
    : CalculatedObject(maker, maker.interfaceHandle()), m_service(maker), m_kind(kind),
      m_formula(kind.make()), m_identity(zeroRecord<coreNameInstrument>()) {
    fillField(m_identity.m_szNameSymbol, QString::fromLatin1(kind.name));
    for (const LineLook &look : m_formula->lines()) {
        Output output;
        output.line = std::make_unique<OutputLine>(look.style);
        dress(*output.line->record(), look);
        m_outputs.push_back(std::move(output));
    }
    describe();
}

// The look that the formula suggests; only the user changes it afterwards.
void Indicator::dress(mvDataPointArray &array, const LineLook &look) {
    coreTypeShow &show = array.typeShow;
    show.firstColor = look.downColour != 0 ? look.downColour : look.colour;
    show.secondColor = look.colour;
    show.drawKind = look.style == LineStyle::Marks  ? DrawMarks
                    : look.style == LineStyle::Dots ? DrawDotsOnValues
                                                    : DrawByStyle;
    show.lineShowType = look.style == LineStyle::Histogram ? ShowHistogram
                        : look.style == LineStyle::Marks   ? ShowMarks
                                                           : ShowLine;
    show.penType = eCoreTypeShowPen(look.penType);
    show.weightPen = look.weight;
    show.scaleKind = int(m_formula->placement());
}

void Indicator::describe() {
    const mvDataPointArray *source = m_inputs.empty() ? nullptr : m_inputs.front().array;
    const std::vector<LineLook> looks = m_formula->lines();
    for (size_t i = 0; i < looks.size(); ++i) {
        Output &output = m_outputs[i];
        output.present = looks[i].present;
        output.name = looks[i].name;
        output.line->setShift(looks[i].shift);
        mvDataPointArray &array = *output.line->record();
        fillField(array.identity.m_szNameSymbol, looks[i].name.left(254));
        if (source) {
            std::memcpy(array.identity.m_szType, source->identity.m_szType, sizeof array.identity.m_szType);
            array.identity.m_periods = source->identity.m_periods;
            array.precision = looks[i].precision >= 0 ? looks[i].precision : source->precision;
            array.coord = source->coord;
        }
        if (m_formula->placement() == Placement::OwnPane)
            array.coord = {ownAxis | handle(), 0, 0};
        array.coord.rank = Word(m_level);
    }
    if (source) {
        std::memcpy(m_identity.m_szType, source->identity.m_szType, sizeof m_identity.m_szType);
        m_identity.m_periods = source->identity.m_periods;
    }
}

void Indicator::ownArrays() {
    for (Output &output : m_outputs)
        output.line->record()->owner = fromWord<void>(handle());
    describe();
}

void Indicator::tellApart(int copy) {
    static const quint32 colours[] = {0xff2f6fd0, 0xff8e44ad, 0xff00897b, 0xffd81b60, 0xff6d4c41};
    coreTypeShow &show = m_outputs.front().line->record()->typeShow;
    if (copy == 0 || m_outputs.size() != 1 || show.drawKind != DrawByStyle || show.lineShowType != ShowLine)
        return;
    show.firstColor = show.secondColor = colours[static_cast<size_t>(copy - 1) % std::size(colours)];
}

void Indicator::setInputs(const std::vector<Input> &inputs, int level) {
    m_inputs = inputs;
    m_level = level;
    recompute();
}

bool Indicator::dependsOn(Handle object) const {
    return std::any_of(m_inputs.begin(), m_inputs.end(),
                       [object](const Input &input) { return input.object == object; });
}

void Indicator::recompute() {
    m_formula->reset();
    m_stale = false;
    describe(); // the source's period or type may be another one now
    update(m_inputs.empty() ? 0 : m_inputs.front().object, 0);
}

void Indicator::update(Handle source, int first) {
    if (m_inputs.empty())
        return;
    if (m_stale)
        return recompute();
    Formula::Sources sources;
    for (const Input &input : m_inputs)
        sources.emplace_back(input.array);
    // What changed in another array than the leading one is looked up by its time.
    for (size_t i = 1; i < m_inputs.size() && first > 0; ++i) {
        if (m_inputs[i].object == source && first < sources[i].count())
            first = sources[0].indexOf(sources[i].time(first));
    }
    if (source != m_inputs.front().object)
        first = std::min(first, std::max(0, sources[0].count() - 1));
    first = std::max(0, std::min(first, sources[0].count()) - m_formula->reach());
    Formula::Lines lines;
    for (Output &output : m_outputs) {
        output.line->truncate(first);
        lines.push_back(output.line.get());
    }
    m_formula->compute(sources, first, lines);
    TimeAxis axis(sources[0], periodOf(m_inputs.front().array->identity.m_periods));
    for (Output &output : m_outputs)
        output.line->publish(axis, first);
    m_firstChanged = first;
}

int Indicator::firstChanged(const mvDataPointArray *array) const {
    for (const Output &output : m_outputs) {
        if (output.line->record() == array)
            return output.line->firstChanged(m_firstChanged);
    }
    return 0;
}

std::vector<mvDataPointArray *> Indicator::outputs() const {
    std::vector<mvDataPointArray *> arrays;
    for (const Output &output : m_outputs) {
        if (output.present)
            arrays.push_back(output.line->record());
    }
    return arrays;
}

std::vector<Handle> Indicator::sources() const {
    return m_kind.needsSource && !m_inputs.empty() ? std::vector<Handle>{m_inputs.front().object}
                                                   : std::vector<Handle>();
}

namePeriod Indicator::period() const {
    return m_identity.m_periods;
}

QString Indicator::menuText() const {
    const QString name = QCoreApplication::translate("desk", m_kind.displayName);
    const QString arguments = m_formula->arguments();
    return arguments.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, arguments);
}

int Indicator::presentLine(int line) const {
    if (line < 0 || line >= int(m_outputs.size()) || !m_outputs[size_t(line)].present)
        return 0;
    return 1 + int(std::count_if(m_outputs.begin(), m_outputs.begin() + line,
                                 [](const Output &output) { return output.present; }));
}

LevelLine Indicator::levels() const {
    LevelLine levels = m_formula->levels();
    if (levels.line > 0)
        levels.line = presentLine(levels.line - 1);
    return levels;
}

std::vector<coreIndicatorLinks> Indicator::links() const {
    std::vector<coreIndicatorLinks> links;
    for (const LineJoin &join : m_formula->joins()) {
        const int first = presentLine(join.first);
        const int second = presentLine(join.second);
        if (first > 0 && second > 0)
            links.push_back({0, join.filled ? 1u : 0u, first, second, Word(join.colourMode)});
    }
    return links;
}

} // namespace desk
