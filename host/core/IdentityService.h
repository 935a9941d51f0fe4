#pragma once
#include "host/core/Service.h"

namespace desk {

class CalculatedObject;

// What every calculated object can tell about itself, whoever made it: numbers, names, sources, period,
// levels, links. Answered from memory, since charts ask on every frame.
class IdentityService : public Service {
public:
    explicit IdentityService(Host &host);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;

private:
    using Answer = bool (IdentityService::*)(CalculatedObject &object, int lParam);
    struct Row {
        unsigned message;
        Answer answer;
    };
    static const Row rows[];

    bool systemNumber(CalculatedObject &object, int lParam);
    bool interfaceOf(CalculatedObject &object, int lParam);
    bool linkCount(CalculatedObject &object, int lParam);
    bool links(CalculatedObject &object, int lParam);
    bool identity(CalculatedObject &object, int lParam);
    bool boundLine(CalculatedObject &object, int lParam);
    bool levels(CalculatedObject &object, int lParam);
    bool properties(CalculatedObject &object, int lParam);
    bool fullPath(CalculatedObject &object, int lParam);
    bool sourceInterface(CalculatedObject &object, int lParam);
    bool sourceName(CalculatedObject &object, int lParam);
    bool period(CalculatedObject &object, int lParam);
    bool displayNames(CalculatedObject &object, int lParam);
    bool base(CalculatedObject &object, int lParam);
    bool ownerLine(CalculatedObject &object, int lParam);
    bool menuText(CalculatedObject &object, int lParam);
    void lineOfArray(int wParam, int lParam);
};

} // namespace desk
