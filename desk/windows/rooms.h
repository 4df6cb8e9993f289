#pragma once

#include <vector>

#include "windows/desk_seat.h"
#include "windows/room_view.h"

namespace desk {

/// A room of the module: how it is called and what it looks like.
struct Room {
  const char* sCaption;
  RoomView* (*make)(DeskSeat& seat, QWidget* pParent);
};

/// All rooms, in the order of the main window. A new room is a new line.
const std::vector<Room>& rooms();

}  // namespace desk
