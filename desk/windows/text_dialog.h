#pragma once

class QString;
class QWidget;

namespace desk {

/// Shows lines of text, such as a voucher, as they are.
void show_text(const QString& sTitle, const QString& sText, QWidget* pParent);

}  // namespace desk
