/* The in-house utility calls: text, registry, dates, statement hook, user-interface
 * helpers, the wizard frame and translation. */
#ifndef OSTREL_H
#define OSTREL_H

#include "ostrel_text.h"
#include "ostrel_dates.h"
#include "ostrel_registry.h"
#include "ostrel_hook.h"
#include "ostrel_ui.h"
#include "ostrel_wizard.h"
#include "ostrel_lts.h"

#endif
