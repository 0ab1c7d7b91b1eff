install(TARGETS smxpx smkcore)
