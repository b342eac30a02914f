#include "host/window/keys/place_keys.h"

#include <QKeyEvent>

namespace host {

namespace {

constexpr unsigned kNativeOffset = 8; // X11 counts from 8 what the kernel counts from 0

/// A row of keys side by side, from the left, as a US keyboard has them.
struct Row
{
    unsigned first; ///< the kernel's number of the leftmost key
    const char* keys;
};

constexpr Row kRows[] = {
    {2, "1234567890-="},
    {16, "QWERTYUIOP[]"},
    {30, "ASDFGHJKL;'`"},
    {43, "\\ZXCVBNM,./"},
};

constexpr int kLastAscii = 0x7F;

bool isLetter(int key)
{
    return key >= Qt::Key_A && key <= Qt::Key_Z;
}

bool isDigit(int key)
{
    return key >= Qt::Key_0 && key <= Qt::Key_9;
}

/// Letters of other scripts, accented ones, keys that wait for the next letter to put an accent on, and keys
/// that the toolkit has no name for.
bool isForeign(int key)
{
    const bool letter = key > kLastAscii && key < Qt::Key_Escape;
    const bool dead = key >= Qt::Key_Dead_Grave && key <= Qt::Key_Dead_Longsolidusoverlay;
    return letter || dead || key == 0 || key == Qt::Key_unknown;
}

bool isSign(int key)
{
    return key > Qt::Key_Space && key <= kLastAscii && !isLetter(key) && !isDigit(key);
}

int modifiersOf(const QKeyEvent& event)
{
    return static_cast<int>(event.modifiers() & ~Qt::KeypadModifier & ~Qt::GroupSwitchModifier);
}

} // namespace

int keyOfPlace(unsigned nativeScanCode)
{
    if (nativeScanCode < kNativeOffset)
        return 0;
    const unsigned place = nativeScanCode - kNativeOffset;
    for (const Row& row : kRows) {
        const unsigned count = static_cast<unsigned>(qstrlen(row.keys));
        if (place >= row.first && place < row.first + count)
            return static_cast<unsigned char>(row.keys[place - row.first]); // Qt's keys are Latin capitals
    }
    return 0;
}

int shortcutOfPlace(const QKeyEvent& event)
{
    const int place = keyOfPlace(event.nativeScanCode());
    const bool isBare = isLetter(place) || isDigit(place);
    if (place == 0 || !(isForeign(event.key()) || (isSign(event.key()) && isBare)))
        return 0;
    return place | modifiersOf(event);
}

int shortcutMeant(const QKeyEvent& event)
{
    const int key = event.key();
    if (key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt || key == Qt::Key_Meta ||
        key == Qt::Key_AltGr || key == 0 || key == Qt::Key_unknown)
        return 0;
    if (const int byPlace = shortcutOfPlace(event))
        return byPlace;
    return key | (isSign(key) ? modifiersOf(event) & ~int(Qt::SHIFT) : modifiersOf(event));
}

} // namespace host
