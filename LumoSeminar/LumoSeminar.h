#pragma once

/// The one header that a front end needs.

#include <LumoSeminar/catalogue/clsSeminar.h>
#include <LumoSeminar/catalogue/colSeminare.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <LumoSeminar/catalogue/target_groups.h>
#include <LumoSeminar/enrolment/budget_years.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/enrolment/participant_costs.h>
#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/components.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/error_list.h>
#include <LumoSeminar/frame/errors.h>
#include <LumoSeminar/frame/money.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/row_set.h>
#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/needs/colANWBBedarf.h>
#include <LumoSeminar/scheduling/clsSerie.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/clsTerminTag.h>
#include <LumoSeminar/scheduling/colSerie.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <LumoSeminar/scheduling/colTermine.h>
#include <LumoSeminar/scheduling/organiser_venue.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
