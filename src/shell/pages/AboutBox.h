#pragma once

class QWidget;

// "Info über Tarvik": the version, where the device root and the settings file are, and where the
// bundled data and the libraries come from with their licences.
void showAboutBox(QWidget* parent);
