#pragma once
#include <QString>

// Readers of the words of a message, one for each form of records. They answer an empty text when there is
// nothing to add to the plain words.
namespace desk::decode {

#define DESK_DECODER(name) QString name(int wParam, int lParam, bool answered)

DESK_DECODER(nothing);
DESK_DECODER(handle);        // wParam is a handle
DESK_DECODER(handleAndWord); // wParam a handle, lParam an out word
DESK_DECODER(word);          // wParam is the address of a word
DESK_DECODER(numbers);       // both words as plain numbers
DESK_DECODER(interfaceRequest);
DESK_DECODER(interfaceNames);
DESK_DECODER(createObject);
DESK_DECODER(subscription);
DESK_DECODER(windowRecord);
DESK_DECODER(insertText);
DESK_DECODER(arrayList);
DESK_DECODER(links);
DESK_DECODER(lineOfArray);
DESK_DECODER(identity);
DESK_DECODER(boundLine);
DESK_DECODER(levels);
DESK_DECODER(period);
DESK_DECODER(changeArray);
DESK_DECODER(displayNames);
DESK_DECODER(symbolNames);
DESK_DECODER(fullPath);
DESK_DECODER(menuText);
DESK_DECODER(subscribeEvent);
DESK_DECODER(createEvent);
DESK_DECODER(event);
DESK_DECODER(emitEvent);
DESK_DECODER(languages);
DESK_DECODER(text);         // wParam is a zero-ended UTF-16 text
DESK_DECODER(answeredText); // the same, filled by the receiver
DESK_DECODER(folder);
DESK_DECODER(toolButton);
DESK_DECODER(control); // lParam is an out pointer
DESK_DECODER(milestone);
DESK_DECODER(caption);
DESK_DECODER(catalogue);
DESK_DECODER(needsSource);
DESK_DECODER(statusPane);
DESK_DECODER(page);
DESK_DECODER(pageItem);
DESK_DECODER(pageChange);
DESK_DECODER(dealingList);
DESK_DECODER(accountCount);
DESK_DECODER(updateData);
DESK_DECODER(rebuild);
DESK_DECODER(rename);
DESK_DECODER(globalParameters);
DESK_DECODER(panelState);
DESK_DECODER(convertList);
DESK_DECODER(createWindow);
DESK_DECODER(itemList);
DESK_DECODER(crossCursor);
DESK_DECODER(node);

#undef DESK_DECODER

} // namespace desk::decode
