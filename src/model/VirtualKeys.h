#pragma once

#include "model/KeyCombo.h"

namespace Kovrel {

// The virtual key codes: the numbers by which a KeyCombo names its key.
namespace VirtualKeys {

inline constexpr quint32 a = 0;
inline constexpr quint32 b = 11;
inline constexpr quint32 c = 8;
inline constexpr quint32 d = 2;
inline constexpr quint32 e = 14;
inline constexpr quint32 f = 3;
inline constexpr quint32 g = 5;
inline constexpr quint32 h = 4;
inline constexpr quint32 i = 34;
inline constexpr quint32 j = 38;
inline constexpr quint32 k = 40;
inline constexpr quint32 l = 37;
inline constexpr quint32 m = 46;
inline constexpr quint32 n = 45;
inline constexpr quint32 o = 31;
inline constexpr quint32 p = 35;
inline constexpr quint32 q = 12;
inline constexpr quint32 r = 15;
inline constexpr quint32 s = 1;
inline constexpr quint32 t = 17;
inline constexpr quint32 u = 32;
inline constexpr quint32 v = 9;
inline constexpr quint32 w = 13;
inline constexpr quint32 x = 7;
inline constexpr quint32 y = 16;
inline constexpr quint32 z = 6;
inline constexpr quint32 digit0 = 29;
inline constexpr quint32 digit1 = 18;
inline constexpr quint32 digit2 = 19;
inline constexpr quint32 digit3 = 20;
inline constexpr quint32 digit4 = 21;
inline constexpr quint32 digit5 = 23;
inline constexpr quint32 digit6 = 22;
inline constexpr quint32 digit7 = 26;
inline constexpr quint32 digit8 = 28;
inline constexpr quint32 digit9 = 25;
inline constexpr quint32 minus = 27;
inline constexpr quint32 equal = 24;
inline constexpr quint32 leftBracket = 33;
inline constexpr quint32 rightBracket = 30;
inline constexpr quint32 semicolon = 41;
inline constexpr quint32 apostrophe = 39;
inline constexpr quint32 comma = 43;
inline constexpr quint32 period = 47;
inline constexpr quint32 slash = 44;
inline constexpr quint32 backslash = 42;
inline constexpr quint32 grave = 50;
inline constexpr quint32 returnKey = 36;
inline constexpr quint32 tab = 48;
inline constexpr quint32 space = 49;
inline constexpr quint32 backspace = 51;
inline constexpr quint32 escape = 53;
inline constexpr quint32 shift = 56;
inline constexpr quint32 rightShift = 60;
inline constexpr quint32 enter = 76;
inline constexpr quint32 deleteKey = 117;
inline constexpr quint32 insert = 114;
inline constexpr quint32 home = 115;
inline constexpr quint32 end = 119;
inline constexpr quint32 pageUp = 116;
inline constexpr quint32 pageDown = 121;
inline constexpr quint32 left = 123;
inline constexpr quint32 right = 124;
inline constexpr quint32 down = 125;
inline constexpr quint32 up = 126;
inline constexpr quint32 f1 = 122;
inline constexpr quint32 f2 = 120;
inline constexpr quint32 f3 = 99;
inline constexpr quint32 f4 = 118;
inline constexpr quint32 f5 = 96;
inline constexpr quint32 f6 = 97;
inline constexpr quint32 f7 = 98;
inline constexpr quint32 f8 = 100;
inline constexpr quint32 f9 = 101;
inline constexpr quint32 f10 = 109;
inline constexpr quint32 f11 = 103;
inline constexpr quint32 f12 = 111;
inline constexpr quint32 print = 105;
inline constexpr quint32 less = 10;
inline constexpr quint32 scrollLock = 107;
inline constexpr quint32 pause = 113;
inline constexpr quint32 menu = 110;
inline constexpr quint32 f13 = KeyCombo::firstLinuxKey + 183;
inline constexpr quint32 f14 = KeyCombo::firstLinuxKey + 184;
inline constexpr quint32 f15 = KeyCombo::firstLinuxKey + 185;
inline constexpr quint32 f16 = 106;
inline constexpr quint32 f17 = 64;
inline constexpr quint32 f18 = 79;
inline constexpr quint32 f19 = 80;
inline constexpr quint32 f20 = 90;
inline constexpr quint32 f21 = KeyCombo::firstLinuxKey + 191;
inline constexpr quint32 f22 = KeyCombo::firstLinuxKey + 192;
inline constexpr quint32 f23 = KeyCombo::firstLinuxKey + 193;
inline constexpr quint32 f24 = KeyCombo::firstLinuxKey + 194;
inline constexpr quint32 keypad0 = 82;
inline constexpr quint32 keypad1 = 83;
inline constexpr quint32 keypad2 = 84;
inline constexpr quint32 keypad3 = 85;
inline constexpr quint32 keypad4 = 86;
inline constexpr quint32 keypad5 = 87;
inline constexpr quint32 keypad6 = 88;
inline constexpr quint32 keypad7 = 89;
inline constexpr quint32 keypad8 = 91;
inline constexpr quint32 keypad9 = 92;
inline constexpr quint32 keypadDecimal = 65;
inline constexpr quint32 keypadMultiply = 67;
inline constexpr quint32 keypadAdd = 69;
inline constexpr quint32 keypadSubtract = 78;
inline constexpr quint32 keypadDivide = 75;
inline constexpr quint32 keypadEqual = 81;
inline constexpr quint32 volumeUp = 72;
inline constexpr quint32 volumeDown = 73;
inline constexpr quint32 volumeMute = 74;
inline constexpr quint32 mediaPlay = KeyCombo::firstLinuxKey + 164;
inline constexpr quint32 mediaStop = KeyCombo::firstLinuxKey + 166;
inline constexpr quint32 mediaNext = KeyCombo::firstLinuxKey + 163;
inline constexpr quint32 mediaPrevious = KeyCombo::firstLinuxKey + 165;

} // namespace VirtualKeys

} // namespace Kovrel
