// Which member of qx_message each member of a TPDU is: for those who make the one of the other, either way.
#ifndef C_PAIRS_H
#define C_PAIRS_H

#include "tpdu/Members.h"

namespace Messages {

/// Calls `visit(member, counterpart)` for each member that the type has.
template <class Type, class Message, class Visit>
void VisitPairs(Type& tpdu, Message& message, Visit visit) {
    if constexpr (requires { tpdu.moreMessages; }) {
        visit(tpdu.moreMessages, message.more_messages);
        visit(tpdu.loopPrevention, message.loop_prevention);
    }
    if constexpr (requires { tpdu.rejectDuplicates; })
        visit(tpdu.rejectDuplicates, message.reject_duplicates);
    if constexpr (requires { tpdu.statusReportIndication; })
        visit(tpdu.statusReportIndication, message.status_report_indication);
    if constexpr (requires { tpdu.statusReportRequest; })
        visit(tpdu.statusReportRequest, message.status_report_request);
    if constexpr (requires { tpdu.isForCommand; })
        visit(tpdu.isForCommand, message.is_for_command);
    if constexpr (requires { tpdu.replyPath; })
        visit(tpdu.replyPath, message.reply_path);
    if constexpr (requires { tpdu.reference; })
        visit(tpdu.reference, message.reference);
    if constexpr (requires { tpdu.status; })
        visit(tpdu.status, message.status);
    if constexpr (requires { tpdu.commandType; }) {
        visit(tpdu.commandType, message.command_type);
        visit(tpdu.messageNumber, message.message_number);
    }
    if constexpr (requires { tpdu.failureCause; })
        visit(tpdu.failureCause, message.failure_cause);
    if constexpr (requires { tpdu.parameterIndicator; })
        visit(tpdu.parameterIndicator, message.parameter_indicator);
    visit(tpdu.protocol, message.protocol);
    if (auto* const party = PartyIn(tpdu))
        visit(*party, message.party);
    if constexpr (requires { tpdu.coding; })
        visit(tpdu.coding, message.coding);
    if constexpr (requires { tpdu.timestamp; })
        visit(tpdu.timestamp, message.timestamp);
    if constexpr (requires { tpdu.discharge; })
        visit(tpdu.discharge, message.discharge);
    if constexpr (requires { tpdu.validity; })
        visit(tpdu.validity, message.validity);
    if constexpr (requires { tpdu.userData; })
        visit(tpdu.userData, message.user_data);
    if constexpr (requires { tpdu.data; })
        visit(tpdu.data, message.user_data);
}

} // namespace Messages

#endif
