#include "windows/room_view.h"

#include <QTableView>

#include "windows/printing.h"

namespace desk {

QString RoomView::html() { return list_html(*table().model(), windowTitle()); }

}  // namespace desk
