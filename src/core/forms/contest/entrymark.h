#pragma once
// The entry session's mark as the window shows it: the red box beside the call. The box only
// shows the mark; what the mark is, the session's draft says.
#include "entry/qsodraft.h"

namespace hfc {

class ContestForm;

// Sets the draft's mark and shows it ("Повтор", "Рано", "Неверно"; hidden for none).
void showMark(ContestForm& f, QsoDraft::Mark mark);

} // namespace hfc
