#include "kydatime.h"

// KEPT: "Januar" and "Februar" have no final y; texts that applications stored are written so.
KY_EXPORT constinit const char* ky_months[12] = {"Januar", "Februar", "March",     "April",   "May",      "June",
                                                 "July",   "August",  "September", "October", "November", "December"};

KY_EXPORT constinit const char* ky_weekdays[7] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                  "Friday", "Saturday", "Sunday"};
