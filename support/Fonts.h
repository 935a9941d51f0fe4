#pragma once
#include "support/FontMetrics.h"
#include <QFont>
#include <QMap>
#include <QString>
#include <map>

class CModule;
class CRGraphModule;

namespace font {

// A screen element, 0 to 21. The charts use `chartElement` throughout.
enum elementCode : int { chartElement = 6, elementCount = 22 };

struct Element {
    QString family;
};

// Maps screen elements to families; one manager is in force per language.
class Manager {
public:
    virtual ~Manager() = default;
    QString GetFont(elementCode code) const;
    virtual int getFontSize(int size) const { return size; }

protected:
    void Insert(const QString &family, std::initializer_list<int> codes);

private:
    std::map<elementCode, Element> m_elements;
};

class DefaultManager : public Manager {
public:
    DefaultManager();
    int getFontSize(int size) const override { return size; }
};

class ChinaManager : public Manager {
public:
    ChinaManager();
    int getFontSize(int size) const override { return size + 2; }
};

Manager *CreateManager(const QString &language); // the caller owns it

// Replacements for fonts that an operating system draws badly.
class FontOperationSystemFactory {
public:
    void Insert(const QFont &from, const QFont &to) { m_fonts[from] = to; }
    QFont GetFont(const QFont &font) const;

private:
    QMap<QFont, QFont> m_fonts;
};

QFont GetOperationSystemFont(const QFont &font);

// The family and size rule of the manager in force, "Arial" and the size itself without one.
QString familyInForce(const CModule *module, elementCode code);
int sizeInForce(const CModule *module, int size);

} // namespace font

class CMvFontBase {
public:
    virtual ~CMvFontBase() = default;
    void OperationSystemFontCorrection() {}
    void OperationSystemFontInvertCorrection() {}
};

CModule *GetModule();

// A font whose point size follows the size rule of the language; it remembers the size asked for.
template <class T>
class CMvFont : public CMvFontBase, public QFont {
public:
    CMvFont() : CMvFont(font::chartElement, 8) {}
    CMvFont(font::elementCode code, int size) : CMvFont(font::familyInForce(GetModule(), code), size) {}
    CMvFont(const QString &family, int size) : QFont(family, size, -1, false), m_module(GetModule()) {
        m_logicalSize = pointSize();
        setPointSize(font::sizeInForce(m_module, size));
        OperationSystemFontCorrection();
        m_correctedSize = pointSize();
        m_corrected = true;
    }
    // Takes a font as it is, without the size rule.
    CMvFont(const QFont &font)
        : QFont(font), m_logicalSize(font.pointSize()), m_correctedSize(font.pointSize()),
          m_module(GetModule()) {
        OperationSystemFontInvertCorrection();
    }
    virtual void setFamily(const QString &family) { QFont::setFamily(family); }
    virtual void setPointSize(int size) { QFont::setPointSize(size); }
    int logicalSize() const { return m_logicalSize; }
    int correctedSize() const { return m_correctedSize; }
    bool isCorrected() const { return m_corrected; }

private:
    int m_logicalSize = 0;
    int m_correctedSize = 0;
    CModule *m_module = nullptr;
    bool m_corrected = false;
};

class CMvGraphFont : public CMvFont<CRGraphModule> {
public:
    using CMvFont<CRGraphModule>::CMvFont;
    CMvGraphFont() = default;
};
