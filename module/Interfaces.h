#pragma once
// Typed wrappers of the core's line-study lists and of the line-study engine.
#include "module/HostRecords.h"

#include <vector>

class CModule;
class CRPrimitive;

namespace Interface {

/// A list of studies with the storage it points at.
class CoreLsListForDpaWrap : public coreLsListForDpa {
public:
    CoreLsListForDpaWrap();
    virtual ~CoreLsListForDpaWrap();
    void resize(unsigned int count); // new entries are zero; an empty list is null

private:
    std::vector<CORE_OBJECT_SYSTEM> m_entries;
};

class Core {
public:
    explicit Core(CModule *module) : m_module(module) {}

    void *GetInterface(const char *a, const char *b, const char *c) const;
    void *GetInterface(const coreNameInterface &names) const;
    int GetNumberPointArray(mvDataPointArray *array) const;
    int GetNumberOwnerLine(void *handle) const;
    const coreFullPathHandle *GetFullPathHandleDpa(void *handle) const; // overwritten by the next call
    int InsertTranslate(const char *context, char *id, char *text) const;
    int AddLs(void *owner, mvDataPointArray *array, void *interfaceHandle, void *object) const;
    int DelLs(void *interfaceHandle, void *object) const;
    int DelSafeLs(void *interfaceHandle, void *object) const;
    int GetCountLs(const CRPrimitive *primitive) const;
    CoreLsListForDpaWrap *GetListLs(const CRPrimitive *primitive, unsigned int count) const; // one at a time

protected:
    CModule *m_module;
};

class Ls : public Core {
public:
    using Core::Core;

    const lsCreateObject *CreateObject(const char *name, const CRPrimitive *primitive,
                                       void *interfaceHandle) const;
    int DeleteObject(void *interfaceHandle, void *object) const;
    int GetName(void *interfaceHandle, void *object, char *ascii, QString &text) const;
    int Focus(void *interfaceHandle, void *object, bool selected, unsigned int value) const;
    int GetCountControlPoint(void *interfaceHandle, void *object) const;
    int GetCountShape(void *interfaceHandle, void *object) const;
    int GetCountOutShape(void *interfaceHandle, void *object, lsSizeOutShape &sizes) const;
    int GetListControlPointer(void *interfaceHandle, void *object, lsControlPointsShapes &points) const;
    int GetPrecision(void *interfaceHandle, void *object) const;
};

} // namespace Interface
