// A key of the keyboard and the modifiers held with it.
#pragma once

#include <cstdint>

namespace pricedown {

// The values are the virtual-key codes of the system, so that a window converts by a cast.
enum class Key : std::uint16_t {
  None = 0,
  Tab = 0x09,
  Enter = 0x0D,
  Escape = 0x1B,
  Space = 0x20,
  PageUp = 0x21,
  PageDown = 0x22,
  End = 0x23,
  Home = 0x24,
  Left = 0x25,
  Up = 0x26,
  Right = 0x27,
  Down = 0x28,
  Insert = 0x2D,
  Delete = 0x2E,
  A = 'A',
  C = 'C',
  F = 'F',
  N = 'N',
  G = 'G',
  P = 'P',
  S = 'S',
  V = 'V',
  X = 'X',
  Z = 'Z',
  Menu = 0x5D,
  Add = 0x6B,
  Subtract = 0x6D,
  F2 = 0x71,
  F3 = 0x72,
  F4 = 0x73,
  F5 = 0x74,
  F6 = 0x75,
  F7 = 0x76,
  F10 = 0x79,
  Plus = 0xBB,
  Minus = 0xBD,
};

struct KeyPress {
  Key key = Key::None;
  bool shift = false;
  bool control = false;
  bool alt = false;
  bool operator==(const KeyPress&) const = default;
};

}  // namespace pricedown
