#pragma once

// Targets a finger can hit on a car-mounted touch screen: the program's style sheet.
namespace TouchStyle {

inline constexpr int kMinTargetHeight = 34; // pixels

inline constexpr const char* kStyleSheet =
    "QLineEdit, QSpinBox, QPushButton, QComboBox { min-height: 34px; }"
    "QCheckBox { min-height: 34px; }"
    "QCheckBox::indicator { width: 22px; height: 22px; }"
    "QScrollBar:vertical { width: 24px; } QScrollBar:horizontal { height: 24px; }";

} // namespace TouchStyle
