#pragma once

#include "addressbook/contact.h"

namespace zef {

/// Brings the generated events of a contact's anniversary and birth date, in this order, in step with the dates: makes
/// them, refreshes date and rule (their texts stay as they were made), or deletes them. Joins the running transaction.
/// Quiet if the folder of a new event is missing or an event could not be saved.
Outcome KeepDateEvents(CSession& session, const CContact& contact);

/// Deletes the birthday and anniversary events of a contact, in this order, each from its protected folder.
void DeleteDateEvents(CSession& session, std::int32_t contact);

}  // namespace zef
