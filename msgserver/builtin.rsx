# Built-in texts of the message server qen-msgserver (format: msgserver/CMsgResources.h).
# The user's own texts come from qen_user.rsx, loaded over these.

[QEN_TXT_001]
de,at,ch = Glashalteleiste
en,us = Glazing bead
fr = Parclose
it = Fermavetro
nl = Glaslat

[QEN_TXT_002]
de,at,ch = Verklotzung
en,us = Setting block
fr = Cale d'assise

[QEN_TXT_003]
de,at,ch = Dichtung
en,us = Seal
fr = Joint
it = Guarnizione

[QEN_TXT_004]
de,at,ch = Silikonfuge
en,us = Silicone joint

[QEN_TXT_005]
de,at,ch = Dämmung
en,us = Insulation
pl = Izolacja

[QEN_TXT_006]
de,at,ch = Anschlussblech
en,us = Flashing

[QEN_TXT_007]
de,at,ch = bauseits
en,us = by others
