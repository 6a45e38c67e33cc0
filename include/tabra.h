/* Tabra: the whole public interface. */
#ifndef TABRA_H
#define TABRA_H

#include "tabra_base.h"
#include "ostrel.h"
#include "tabra_window.h"
#include "tabra_script.h"
#include "tabra_connection.h"
#include "tabra_sqltext.h"
#include "tabra_query.h"
#include "tabra_designer.h"
#include "tabra_catalog.h"
#include "tabra_rowset.h"
#include "tabra_systable.h"
#include "tabra_wizards.h"
#include "tabra_admin.h"

#endif
