import hypothesis

hypothesis.settings.register_profile("tolkcolor", deadline=None, derandomize=True, database=None)
hypothesis.settings.load_profile("tolkcolor")
