#pragma once

class CRGraphWidget;
class CRPrimitive;

/// Asks the series of a chart whether one of them holds an object of the host.
class FindObject {
public:
    explicit FindObject(const void *object) : m_object(object) {}
    bool Search(const CRGraphWidget *widget) const; // every series of every layer of every pane
    bool Visit(const CRPrimitive *primitive) const;

private:
    const void *m_object;
};
