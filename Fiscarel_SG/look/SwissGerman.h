#pragma once

class QApplication;

namespace fiscarel::look {

/// Lets everything that is not our own text be Swiss German: the window library's dialogs and menus
/// (with ss for ß), dates and numbers of its widgets. Call once, before the first widget. Where the
/// library's translation is not installed its own texts stay English.
void speakSwissGerman(QApplication& application);

} // namespace fiscarel::look
