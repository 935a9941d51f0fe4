#include "objects/OutputSeries.h"

#include "chart/GraphWidget.h"
#include "module/HostCalls.h"
#include "objects/DrawTypes.h"
#include "objects/Indicator.h"

#include <QPointer>
#include <algorithm>

bool isListCount(int count) {
    constexpr int most = 65536; // a number above this is no answer
    return count > 0 && count <= most;
}

std::vector<mvDataPointArray *> fetchOutputs(void *handle) {
    const int count = HostCalls::outputCount(handle);
    if (!isListCount(count))
        return {};
    std::vector<mvDataPointArray *> outputs = HostCalls::outputArrays(handle, count);
    if (std::all_of(outputs.begin(), outputs.end(), [](const mvDataPointArray *array) { return !array; }))
        outputs.clear();
    return outputs;
}

void handOverSource(void *handle, int places, mvDataPointArray *source) {
    if (!isListCount(places))
        return;
    std::vector<mvDataPointArray *> list(static_cast<std::size_t>(places), nullptr);
    list.front() = source;
    HostCalls::handOverSources(handle, list);
}

int placementCode(const std::vector<mvDataPointArray *> &outputs) {
    for (const mvDataPointArray *array : outputs)
        if (array)
            return array->typeShow.scaleKind;
    return 0;
}

CRPrimitive *addOutput(CRIndicator &indicator, CRGraphLayer *layer, int lineIndex, mvDataPointArray *array,
                       bool askNames) {
    QPointer<CRPrimitive> primitive(indicator.AddPrimitive(layer, indicator.m_widget->TotalPrimitiveCount(),
                                                           lineIndex, outputDrawType(*array)));
    if (!primitive)
        return nullptr;
    bindLine(primitive, indicator.GetHandle(), array);
    if (!askNames)
        return primitive;
    primitive->RequestExNames();
    if (primitive)
        primitive->SyncInternalData();
    return primitive;
}
