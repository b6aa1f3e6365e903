// Ids of the item class form's child windows: a public contract for UI automation that never
// changes. A new child gets a new number.
#pragma once

namespace pricedown::windows::form_ids {

inline constexpr int kToolStrip = 301;       // tlbSPCA
inline constexpr int kHeaderFrame = 302;     // FrameAdd
inline constexpr int kItemFrame = 303;       // Frame1
inline constexpr int kLabel1 = 311;          // Label1, and Label2 to Label5 after it
inline constexpr int kClassNumber = 321;     // itemClassNumber
inline constexpr int kClassName = 322;       // ItemClassName
inline constexpr int kLossAccount = 323;     // txtitem(0)
inline constexpr int kReserveAccount = 324;  // txtitem(1)
inline constexpr int kPercentage = 325;      // txtPencent
inline constexpr int kLossLookup = 333;      // cmdItem(0)
inline constexpr int kReserveLookup = 334;   // cmdItem(1)
inline constexpr int kMembers = 340;         // ItemLedger
inline constexpr int kLine = 341;            // below the tool strip

}  // namespace pricedown::windows::form_ids
