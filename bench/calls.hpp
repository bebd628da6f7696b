#pragma once

namespace kestra::bench {

// Calls to the library, each of one exchange. True: the printer accepted it.
bool OpenTicket();
bool PrintItem();
bool PrintPayment();
bool CloseTicket();
bool CutPaper();

}  // namespace kestra::bench
