#include "services/posting.h"

#include <QDate>

namespace desk::posting {

std::string check_date() { return QDate::currentDate().toString(Qt::ISODate).toStdString(); }

}  // namespace desk::posting
