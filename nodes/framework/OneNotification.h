#pragma once

#include <Inventor/SbBasic.h>

/// A change of many parts that is signalled once: while it lives, the node or field notifies
/// nobody; when it goes, it notifies as before and is touched.
///
///     const OneNotification once(coordinates->point);
///     coordinates->point.setNum(count);
template <typename Notifier>
class OneNotification {
public:
  explicit OneNotification(Notifier& notifier)
      : notifier(notifier), before(notifier.enableNotify(FALSE)) {}
  ~OneNotification() {
    notifier.enableNotify(before);
    notifier.touch();
  }
  OneNotification(const OneNotification&) = delete;
  OneNotification& operator=(const OneNotification&) = delete;

private:
  Notifier& notifier;
  SbBool before;
};
