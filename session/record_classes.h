#pragma once

/// The record classes and their collections by name, for headers that hand them on and need not know them.
namespace zef {

class CAlarm;
class CAttachement;
class CCategory;
class CContact;
class CEvent;
class CFolder;
class CNote;
class CNotification;
class CPhoneLog;
class CRecurrence;
class CTag;
class CTask;
class CUser;

template <class Element>
class Collection;
using CAlarms = Collection<CAlarm>;
using CCategories = Collection<CCategory>;
using CContacts = Collection<CContact>;
using CEvents = Collection<CEvent>;
using CFolders = Collection<CFolder>;
using CNotes = Collection<CNote>;
using CPhoneLogs = Collection<CPhoneLog>;
using CTags = Collection<CTag>;
using CTasks = Collection<CTask>;
using CUsers = Collection<CUser>;

}  // namespace zef
