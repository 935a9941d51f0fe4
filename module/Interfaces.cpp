#include "module/Interfaces.h"

#include "chart/Primitive.h"
#include "module/HostMessages.h"
#include "module/Module.h"
#include "objects/Indicator.h"

namespace Interface {

namespace {

void *indicatorHandle(const CRPrimitive *primitive) {
    return primitive->m_pIndicator ? primitive->m_pIndicator->GetHandle() : nullptr;
}

} // namespace

CoreLsListForDpaWrap::CoreLsListForDpaWrap() {
    clearRecord(static_cast<coreLsListForDpa &>(*this));
}

CoreLsListForDpaWrap::~CoreLsListForDpaWrap() = default;

void CoreLsListForDpaWrap::resize(unsigned int size) {
    m_entries.resize(size, zeroRecord<CORE_OBJECT_SYSTEM>());
    list = m_entries.empty() ? nullptr : m_entries.data();
}

void *Core::GetInterface(const char *a, const char *b, const char *c) const {
    coreNameInterface names = zeroRecord<coreNameInterface>();
    fillField(names.nameIntreface, a);
    fillField(names.nameProvider, b);
    fillField(names.nameObject, c);
    return GetInterface(names);
}

void *Core::GetInterface(const coreNameInterface &names) const {
    Word handle = 0;
    coreNameInterfaceRequest request = zeroRecord<coreNameInterfaceRequest>();
    request.names = names;
    request.mode = 1;
    request.result = static_cast<Word>(toWord(&handle));
    m_module->SendCore(ToHost::FindInterface, &request, 0);
    return fromWord<void>(handle);
}

int Core::GetNumberPointArray(mvDataPointArray *array) const {
    int line = 0;
    m_module->SendCore(ToHost::LineNumberOfArray, array, &line);
    return line;
}

int Core::GetNumberOwnerLine(void *handle) const {
    int line = 0;
    m_module->SendCore(ToHost::OwnerLineNumber, handle, &line);
    return line;
}

const coreFullPathHandle *Core::GetFullPathHandleDpa(void *handle) const {
    static char buffer[1024];
    static coreFullPathHandle record;
    std::memset(buffer, 0, sizeof buffer);
    record.buffer = buffer;
    record.size = sizeof buffer;
    m_module->SendCore(ToHost::FullPath, handle, &record);
    return &record;
}

int Core::InsertTranslate(const char *context, char *id, char *text) const {
    coreTranslateText record = zeroRecord<coreTranslateText>();
    fillField(record.context, context);
    fillField(record.id, id);
    fillField(record.text, text);
    return m_module->SendCore(ToHost::InsertText, &record, 0, -1);
}

int Core::AddLs(void *owner, mvDataPointArray *array, void *interfaceHandle, void *object) const {
    coreLsAttach record = zeroRecord<coreLsAttach>();
    record.array = array;
    record.interfaceHandle = interfaceHandle;
    record.object = object;
    return m_module->SendCore(ToHost::AttachLineStudy, owner, &record, -1);
}

int Core::DelLs(void *interfaceHandle, void *object) const {
    return m_module->SendCore(ToHost::RemoveLineStudy, interfaceHandle, object, -1);
}

int Core::DelSafeLs(void *interfaceHandle, void *object) const {
    return m_module->SendCore(ToHost::DetachLineStudy, interfaceHandle, object, -1);
}

int Core::GetCountLs(const CRPrimitive *primitive) const {
    coreLsCountForDpa record = zeroRecord<coreLsCountForDpa>();
    record.array = primitive->GetArray();
    m_module->SendCore(ToHost::CountLineStudies, indicatorHandle(primitive), &record);
    return static_cast<int>(record.count);
}

CoreLsListForDpaWrap *Core::GetListLs(const CRPrimitive *primitive, unsigned int count) const {
    static CoreLsListForDpaWrap list;
    list.resize(0);
    list.resize(count);
    list.array = primitive->GetArray();
    list.reserved = 0;
    list.count = count;
    m_module->SendCore(ToHost::ListLineStudies, indicatorHandle(primitive),
                       static_cast<coreLsListForDpa *>(&list));
    return &list;
}

// The pane of the primitive is named by its address.
const lsCreateObject *Ls::CreateObject(const char *name, const CRPrimitive *primitive,
                                       void *interfaceHandle) const {
    static lsCreateObject record;
    clearRecord(record);
    fillField(record.name, name);
    record.array = primitive->GetArray();
    record.areaId = static_cast<Word>(toWord(primitive->GetArea()));
    m_module->Send(interfaceHandle, ToHost::StudyCreate, &record, 0);
    return &record;
}

int Ls::Focus(void *interfaceHandle, void *object, bool selected, unsigned int value) const {
    lsFocus record = zeroRecord<lsFocus>();
    record.object = static_cast<Word>(toWord(object));
    record.selected = selected ? 1 : 0;
    record.value = value;
    return m_module->Send(interfaceHandle, ToHost::StudyFocus, &record, 0, -1);
}

int Ls::DeleteObject(void *interfaceHandle, void *object) const {
    return m_module->Send(interfaceHandle, ToHost::StudyDelete, object, 0, -1);
}

int Ls::GetName(void *interfaceHandle, void *object, char *ascii, QString &text) const {
    lsObjectNames names = zeroRecord<lsObjectNames>();
    const int result = m_module->Send(interfaceHandle, ToHost::StudyNames, object, &names, -1);
    if (ascii)
        std::memcpy(ascii, names.tool, sizeof names.tool);
    text = fieldText(names.name);
    return result;
}

int Ls::GetCountControlPoint(void *interfaceHandle, void *object) const {
    int count = 0;
    m_module->Send(interfaceHandle, ToHost::StudyControlPointCount, object, &count);
    return count;
}

int Ls::GetCountShape(void *interfaceHandle, void *object) const {
    int count = 0;
    m_module->Send(interfaceHandle, ToHost::StudyShapeCount, object, &count);
    return count;
}

int Ls::GetCountOutShape(void *interfaceHandle, void *object, lsSizeOutShape &sizes) const {
    return m_module->Send(interfaceHandle, ToHost::StudyShapeSizes, object, &sizes, -1);
}

int Ls::GetListControlPointer(void *interfaceHandle, void *object, lsControlPointsShapes &points) const {
    return m_module->Send(interfaceHandle, ToHost::StudyCompute, object, &points, -1);
}

int Ls::GetPrecision(void *interfaceHandle, void *object) const {
    int precision = 4;
    m_module->Send(interfaceHandle, ToHost::StudyPrecision, object, &precision);
    return precision;
}

} // namespace Interface
