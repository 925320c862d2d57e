#include "kydatime.h"

constinit const char* ky_months[12] = {"Januar", "Februar", "March",     "April",   "May",      "June",
                                       "July",   "August",  "September", "October", "November", "December"};

constinit const char* ky_weekdays[7] = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};
